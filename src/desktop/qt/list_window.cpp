#include "desktop/qt/list_window.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/qt/style.h"

namespace cuvexa::qt {
namespace {

/// Names of columns carry no accents; headings do.
QString heading(const std::string& column) {
    if (column == "DESCRIPCION") return QStringLiteral("Descripción");
    if (column == "CODIGO") return QStringLiteral("Código");
    if (column.size() == 2 || column == "CLABE") return to_qt(column);
    QString text = to_qt(column).toLower().replace(QLatin1Char('_'), QLatin1Char(' '));
    if (!text.isEmpty()) text[0] = text[0].toUpper();
    return text;
}

}  // namespace

List_window::List_window(Choice_list& list, const Suite_colors& colors, QWidget* parent)
    : QDialog(parent), list_(list), sought_(new QLineEdit), table_(new QTableWidget), count_(new QLabel) {
    setObjectName(QStringLiteral("lista"));
    setWindowTitle(to_qt(list.title()));
    dress(*this, colors);

    auto* label = new QLabel(QStringLiteral("Buscar:"));
    label->setBuddy(sought_);
    sought_->setObjectName(QStringLiteral("buscar"));
    sought_->setAccessibleName(QStringLiteral("Buscar"));
    sought_->installEventFilter(this);
    connect(sought_, &QLineEdit::textEdited, this, &List_window::look_for);

    table_->setObjectName(QStringLiteral("renglones"));
    table_->setAccessibleName(to_qt(list.title()));
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setAlternatingRowColors(true);
    table_->setShowGrid(false);
    table_->setFocusPolicy(Qt::NoFocus);  // the keys go to the search field, which hands them on
    table_->verticalHeader()->hide();
    table_->horizontalHeader()->setHighlightSections(false);
    table_->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    connect(table_, &QTableWidget::cellDoubleClicked, this, &QDialog::accept);

    count_->setProperty("role", "note");
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(18, 16, 18, 14);
    layout->setSpacing(8);
    layout->addWidget(label);
    layout->addWidget(sought_);
    layout->addWidget(table_, 1);
    layout->addWidget(count_);
    look_for({});
    ensurePolished();
    const int unit = fontMetrics().averageCharWidth();
    resize(std::clamp(table_->horizontalHeader()->length() + unit * 10, unit * 60, unit * 140), unit * 46);
    table_->horizontalHeader()->setStretchLastSection(true);
}

void List_window::look_for(const QString& text) {
    rows_ = list_.rows(text.toStdString());
    const auto columns = list_.columns();
    table_->clear();
    table_->setColumnCount(static_cast<int>(columns.size()));
    table_->setRowCount(static_cast<int>(rows_.size()));
    QStringList headings;
    for (const auto& column : columns) headings << heading(column);
    table_->setHorizontalHeaderLabels(headings);
    for (int row = 0; row < table_->rowCount(); ++row) {
        const auto& cells = rows_[static_cast<std::size_t>(row)];
        for (int column = 0; column < table_->columnCount(); ++column) {
            table_->setItem(row, column, new QTableWidgetItem(to_qt(cells[static_cast<std::size_t>(column)])));
        }
    }
    table_->horizontalHeader()->setStretchLastSection(false);
    table_->resizeColumnsToContents();
    table_->resizeRowsToContents();
    table_->horizontalHeader()->setStretchLastSection(
        isVisible());  // not yet while the window takes its width from the columns
    if (!rows_.empty()) table_->selectRow(0);
    const QString found = rows_.empty()       ? QStringLiteral("Sin coincidencias")
                          : rows_.size() == 1 ? QStringLiteral("1 renglón")
                                              : QStringLiteral("%1 renglones").arg(rows_.size());
    count_->setText(found + QStringLiteral("    ↑ ↓ elegir    Enter tomar    Esc regresar"));
}

bool List_window::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    switch (key->key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            QCoreApplication::sendEvent(table_, event);
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (table_->currentRow() >= 0) accept();
            return true;
        default:
            return QDialog::eventFilter(watched, event);
    }
}

std::optional<std::string> List_window::choose() {
    sought_->setFocus();
    if (exec() != QDialog::Accepted || table_->currentRow() < 0) return std::nullopt;
    return rows_[static_cast<std::size_t>(table_->currentRow())].front();
}

}  // namespace cuvexa::qt
