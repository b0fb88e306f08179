#include "desktop/qt/style.h"

#include <QColor>
#include <QFontDatabase>
#include <QLocale>
#include <QStyleFactory>
#include <algorithm>

namespace cuvexa::qt {
namespace {

/// Type that is read without leaning forward.
constexpr qreal least_point_size = 12;

QString hex(std::uint32_t color) {
    return QStringLiteral("#%1").arg(color, 6, 16, QLatin1Char('0'));
}

constexpr const char* sheet = R"(
QDialog { background: @form; border: 1px solid @border; }
QWidget { color: @text; font-size: @sizept; }
QLabel { background: transparent; }
QLabel[role="title"] { font-weight: 600; font-size: 15pt; color: @accent; }
QLabel[role="note"] { color: @quiet; }
QLabel:disabled { color: @disabled; }
QFrame[role="line"] { background: @line; border: none; }
QLineEdit, QDateEdit {
    background: @field; border: 1px solid @border; border-radius: 4px; padding: 6px 8px;
    selection-background-color: @accent; selection-color: @on_accent;
}
QLineEdit:focus, QDateEdit:focus { border: 2px solid @accent; padding: 5px 7px; }
QLineEdit:disabled, QDateEdit:disabled { background: @form; color: @disabled; border: 1px dashed @border; }
QLineEdit[readOnly="true"] { background: @locked; border: 1px solid @locked; }
QLabel[role="refusal"] { color: @refused; }
QLineEdit[refused="true"] { background: @refused_field; border: 2px solid @refused; padding: 5px 7px; }
QDateEdit::drop-down { border: none; width: 30px; }
QDateEdit::down-arrow {
    image: none; width: 0; height: 0; margin-right: 10px;
    border-left: 5px solid @field; border-right: 5px solid @field; border-top: 7px solid @quiet;
}
QDateEdit::down-arrow:disabled {
    border-left-color: @form; border-right-color: @form; border-top-color: @border;
}
QCheckBox::indicator { width: 20px; height: 20px; }
QCheckBox { spacing: 10px; padding: 4px; border: 2px solid transparent; border-radius: 4px; }
QCheckBox:focus { border-color: @accent; }
QPushButton {
    background: @field; border: 1px solid @border; border-radius: 4px; padding: 8px 22px; min-width: 9em;
}
QPushButton:hover { background: @locked; }
QPushButton:focus { border: 3px solid @text; padding: 6px 20px; }
QPushButton[role="accept"] { background: @accent; color: @on_accent; border-color: @accent; font-weight: 600; }
QPushButton[role="accept"]:focus { border-color: @text; }
QTableWidget {
    background: @field; alternate-background-color: @form; border: 1px solid @border; gridline-color: @locked;
    selection-background-color: @accent; selection-color: @on_accent;
}
QTableWidget::item { padding: 4px 8px; }
QHeaderView::section { background: @locked; color: @text; border: none; padding: 6px 3px; font-weight: 600; }
)";

QString style_sheet(const Suite_colors& colors, qreal point_size) {
    QString out = QString::fromLatin1(sheet);
    out.replace(QLatin1String("@size"), QString::number(point_size));
    // The longer names first: "@refused" is the beginning of "@refused_field".
    const std::pair<const char*, std::uint32_t> names[] = {
        {"@refused_field", colors.refused_field},
        {"@refused", colors.refused},
        {"@on_accent", colors.accent_text},
        {"@line", colors.locked_field},
        {"@accent", colors.accent},
        {"@disabled", colors.disabled_text},
        {"@quiet", colors.quiet_text},
        {"@locked", colors.locked_field},
        {"@border", colors.border},
        {"@field", colors.field},
        {"@form", colors.form},
        {"@text", colors.text},
    };
    for (const auto& [name, color] : names) out.replace(QLatin1String(name), hex(color));
    return out;
}

}  // namespace

QString label_text(const std::string& text) {
    return to_qt(text).replace(QLatin1Char('&'), QStringLiteral("&&"));
}

void dress(QWidget& window, const Suite_colors& colors) {
    window.setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QFont font = window.font();
    font.setPointSizeF(std::max(font.pointSizeF(), least_point_size));
    window.setFont(font);
    window.setLocale(QLocale(QLocale::Spanish, QLocale::Mexico));
    QPalette palette = window.palette();
    palette.setColor(QPalette::Window, QColor::fromRgb(colors.form));
    palette.setColor(QPalette::WindowText, QColor::fromRgb(colors.text));
    palette.setColor(QPalette::Base, QColor::fromRgb(colors.field));
    palette.setColor(QPalette::Text, QColor::fromRgb(colors.text));
    palette.setColor(QPalette::Highlight, QColor::fromRgb(colors.accent));
    palette.setColor(QPalette::HighlightedText, QColor::fromRgb(colors.accent_text));
    window.setPalette(palette);
    window.setStyleSheet(style_sheet(colors, font.pointSizeF()));
}

QFont field_font(const QWidget& window, const std::string& name) {
    if (name.empty()) return window.font();
    // A fixed pitch stands for the bitmap fonts of old where a machine does not have them.
    const QString family = QString::fromStdString(name);
    QFont font = QFontDatabase::families().contains(family, Qt::CaseInsensitive)
                     ? QFont(family)
                     : QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSizeF(window.font().pointSizeF() + 1);
    return font;
}

}  // namespace cuvexa::qt
