#include "desktop/qt/form_window.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QDateEdit>
#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>
#include <cmath>

#include "desktop/qt/list_window.h"
#include "desktop/qt/style.h"

namespace cuvexa::qt {
namespace {

QDate to_qt(Date date) {
    const Calendar day = calendar(date);
    return QDate(day.year, day.month, day.day);
}

Date from_qt(QDate date) {
    return make_date(date.year(), date.month(), date.day());
}

QFrame* line() {
    auto* frame = new QFrame;
    frame->setProperty("role", "line");
    frame->setFixedHeight(1);
    return frame;
}

/// The code under which forms know a key; 0 for the others.
int form_key(int key) {
    switch (key) {
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
            return key_tab;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return key_enter;
        case Qt::Key_Escape:
            return key_escape;
        case Qt::Key_F2:
            return key_f2;
        case Qt::Key_F4:
            return key_f4;
        default:
            return 0;
    }
}

/// Shows a property of the widget for which the style sheet has a rule.
void set_mark(QWidget& widget, const char* name, bool value) {
    if (widget.property(name).toBool() == value) return;
    widget.setProperty(name, value);
    widget.style()->unpolish(&widget);
    widget.style()->polish(&widget);
}

/// Why a key is refused, written over the empty description; nothing takes it away.
void show_refusal(QLineEdit& description, const QString& why) {
    auto* note = description.findChild<QLabel*>();
    if (!note && !why.isEmpty()) {
        note = new QLabel;
        note->setProperty("role", "refusal");
        note->setAttribute(Qt::WA_TransparentForMouseEvents);
        auto* layout = new QHBoxLayout(&description);
        layout->setContentsMargins(9, 0, 9, 0);
        layout->addWidget(note);
        QObject::connect(&description, &QLineEdit::textChanged, note,
                         [note](const QString& text) { note->setVisible(text.isEmpty()); });
    }
    if (!note) return;
    note->setText(why);
    note->setVisible(description.text().isEmpty());
}

}  // namespace

Form_dialog::Form_dialog(Form& form, QWidget* parent) : QDialog(parent), form_(form) {
    setObjectName(qt::to_qt(form.Name()));
    setWindowTitle(qt::to_qt(form.Caption()));
    dress(*this, form.colors());

    auto* title = new QLabel(label_text(form.Caption()));
    title->setProperty("role", "title");
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(10);
    grid->setColumnStretch(2, 1);
    add_rows(*grid);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 18, 24, 18);
    layout->setSpacing(12);
    layout->addWidget(title);
    layout->addWidget(line());
    layout->addLayout(grid);
    layout->addStretch(1);
    layout->addWidget(line());
    layout->addWidget(buttons());
    setMinimumWidth(fontMetrics().averageCharWidth() * 96);
}

// ---- Widgets -------------------------------------------------------------------------------------------------------

void Form_dialog::add_rows(QGridLayout& grid) {
    for (const auto& row : form_.rows()) add_row(grid, row);
}

void Form_dialog::add_row(QGridLayout& grid, const Form_row& row) {
    const int at = grid.rowCount();
    QString name;
    QLabel* label = nullptr;
    if (row.label) {
        label = static_cast<QLabel*>(add(*row.label, {}));
        grid.addWidget(label, at, 0);
        name = qt::to_qt(row.label->caption());
        if (name.endsWith(QLatin1Char(':'))) name.chop(1);
    }
    if (!row.field) return;
    QWidget* field = add(*row.field, name);
    const bool whole_line = !row.beside && !dynamic_cast<DatePicker*>(row.field);
    grid.addWidget(field, at, 1, 1, whole_line ? 2 : 1);
    if (label) label->setBuddy(field);
    if (row.beside) grid.addWidget(add(*row.beside, name + QStringLiteral(", descripción")), at, 2);
}

QWidget* Form_dialog::add(Control& control, const QString& accessible_name) {
    QWidget* widget = make_widget(control);
    widget->setObjectName(qt::to_qt(control.Name()));
    if (!accessible_name.isEmpty()) widget->setAccessibleName(accessible_name);
    widget->installEventFilter(this);
    widgets_[&control] = widget;
    controls_[widget] = &control;
    refresh(control);
    return widget;
}

QWidget* Form_dialog::make_widget(Control& control) {
    if (auto* field = dynamic_cast<LookupTextBox*>(&control)) return make_field(*field);
    if (auto* box = dynamic_cast<Check_box*>(&control)) return make_box(*box);
    if (auto* picker = dynamic_cast<DatePicker*>(&control)) return make_picker(*picker);
    if (auto* button = dynamic_cast<Bar_button*>(&control)) return make_button(*button);
    auto* label = new QLabel;
    if (&control != form_.rows().front().label && form_.rows().back().field == &control) {
        label->setProperty("role", "note");
    }
    return label;
}

QWidget* Form_dialog::make_field(LookupTextBox& field) {
    auto* edit = new QLineEdit;
    edit->setFont(field_font(*this, field.font));
    const bool has_description = !field.sql_control_resultado.empty();
    edit->setMinimumWidth(edit->fontMetrics().averageCharWidth() * (has_description ? 16 : 24));
    if (has_description) edit->setMaximumWidth(edit->fontMetrics().averageCharWidth() * 20);
    if (!field.idconsulta.empty() && !field.Locked()) edit->setToolTip(QStringLiteral("F2: lista"));
    connect(edit, &QLineEdit::textEdited, this,
            [this, &field](const QString& text) { act([&] { form_.type(field, text.toStdString()); }); });
    return edit;
}

QWidget* Form_dialog::make_box(Check_box& box) {
    auto* check = new QCheckBox(label_text(box.caption));
    check->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    check->setAccessibleName(qt::to_qt(box.caption));
    connect(check, &QCheckBox::clicked, this, [this, &box] {
        act([&] {
            form_.go_to(box);
            form_.click(box);
        });
        refresh(box);
    });
    return check;
}

QWidget* Form_dialog::make_picker(DatePicker& picker) {
    auto* edit = new QDateEdit;
    edit->setDisplayFormat(QStringLiteral("dd/MM/yyyy"));
    edit->setCalendarPopup(true);
    // The arrow of the calendar stays. Without this a click beside the text takes a day away: the frame of a date with
    // calendar has the number of a "down" button.
    edit->setButtonSymbols(QAbstractSpinBox::NoButtons);
    edit->calendarWidget()->setFirstDayOfWeek(Qt::Sunday);
    edit->calendarWidget()->setGridVisible(false);
    edit->setMinimumWidth(edit->fontMetrics().averageCharWidth() * 20);
    edit->setToolTip(QStringLiteral("dd/mm/aaaa"));
    connect(edit, &QDateEdit::dateChanged, this, [this, &picker](QDate date) {
        if (!refreshing_) act([&] { form_.pick(picker, from_qt(date)); });
    });
    return edit;
}

QWidget* Form_dialog::make_button(Bar_button& button) {
    auto* push = new QPushButton(label_text(button.caption + "   " + button.shortcut));
    push->setAccessibleName(qt::to_qt(button.caption));
    push->setAutoDefault(false);
    if (&button == &form_.buttons().b1) push->setProperty("role", "accept");
    connect(push, &QPushButton::clicked, this, [this, &button] { act([&] { form_.press(button); }); });
    return push;
}

QWidget* Form_dialog::buttons() {
    auto* bar = new QWidget;
    auto* layout = new QHBoxLayout(bar);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* keys = new QLabel(QStringLiteral("F2 lista    Enter siguiente"));
    keys->setProperty("role", "note");
    layout->addWidget(keys);
    layout->addStretch(1);
    layout->addWidget(add(form_.buttons().b1, {}));
    layout->addWidget(add(form_.buttons().b2, {}));
    return bar;
}

// ---- From the form to the widgets ----------------------------------------------------------------------------------

void Form_dialog::refresh(Control& control) {
    const auto found = widgets_.find(&control);
    if (found == widgets_.end()) return;
    QWidget* widget = found->second;
    widget->setEnabled(control.Enabled());
    refreshing_ = true;
    if (auto* field = dynamic_cast<LookupTextBox*>(&control)) {
        refresh_field(*field);
    } else if (auto* box = dynamic_cast<Check_box*>(&control)) {
        static_cast<QCheckBox*>(widget)->setChecked(box->Value() == 1);
    } else if (auto* picker = dynamic_cast<DatePicker*>(&control)) {
        static_cast<QDateEdit*>(widget)->setDate(to_qt(picker->Value()));
    } else if (auto* label = dynamic_cast<CaptionLabel*>(&control)) {
        static_cast<QLabel*>(widget)->setText(label_text(label->caption()));
    }
    refreshing_ = false;
}

void Form_dialog::refresh_field(LookupTextBox& field) {
    auto* edit = static_cast<QLineEdit*>(widgets_.at(&field));
    const QString text = qt::to_qt(field.shown());
    if (edit->text() != text) {
        const auto at = edit->cursorPosition();
        const bool typing = edit->text().size() == text.size();  // only the letter case changed
        edit->setText(text);
        if (typing) edit->setCursorPosition(at);
        if (field.Locked()) edit->setCursorPosition(0);  // a long description shows its beginning
    }
    edit->setReadOnly(field.Locked());
    edit->setFocusPolicy(field.takes_focus() ? Qt::StrongFocus : Qt::NoFocus);
    set_mark(*edit, "refused", field.refused());
    const QString why = field.refused() ? QStringLiteral("No existe o no puede usarse aquí") : QString();
    edit->setAccessibleDescription(why);
    const auto* description = form_.find(field.sql_control_resultado);
    if (const auto beside = widgets_.find(description); description && beside != widgets_.end()) {
        show_refusal(*static_cast<QLineEdit*>(beside->second), why);
    }
}

void Form_dialog::set_focus(Control& control) {
    const auto found = widgets_.find(&control);
    if (found == widgets_.end()) return;
    found->second->setFocus(Qt::OtherFocusReason);
    if (auto* edit = qobject_cast<QLineEdit*>(found->second)) edit->selectAll();
    if (auto* date = qobject_cast<QDateEdit*>(found->second)) date->setSelectedSection(QDateEdit::DaySection);
}

void Form_dialog::hide() {
    done(QDialog::Accepted);
}

std::optional<std::string> Form_dialog::choose(Choice_list& list) {
    auto chosen = List_window(list, form_.colors(), this).choose();
    activateWindow();  // a display without window manager does not give the keyboard back by itself
    return chosen;
}

// ---- From the user to the form -------------------------------------------------------------------------------------

void Form_dialog::act(const std::function<void()>& body) {
    try {
        body();
    } catch (...) {
        failure_ = std::current_exception();
        done(QDialog::Rejected);
    }
}

bool Form_dialog::key_pressed(int key, Qt::KeyboardModifiers modifiers) {
    const int code = form_key(key);
    if (code == 0 || (modifiers & (Qt::AltModifier | Qt::MetaModifier))) return false;
    bool used = true;  // also when its handler failed
    act([&] {
        const bool shift = key == Qt::Key_Backtab || (modifiers & Qt::ShiftModifier);
        used = form_.key_down(code, shift, modifiers & Qt::ControlModifier);
    });
    return used;
}

void Form_dialog::focus_came(Control& control) {
    if (form_.visible() && &control != form_.active()) act([&] { form_.go_to(control); });
}

bool Form_dialog::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key_pressed(key->key(), key->modifiers())) return true;
    } else if (event->type() == QEvent::FocusIn) {
        const auto found = controls_.find(watched);
        if (found != controls_.end()) {
            // Later, when the focus has settled: the form may send it back.
            QMetaObject::invokeMethod(
                this, [this, control = found->second] { focus_came(*control); }, Qt::QueuedConnection);
        }
    }
    return QDialog::eventFilter(watched, event);
}

void Form_dialog::reject() {
    act([&] { form_.close(); });
}

void Form_dialog::run() {
    act([&] { form_.shown_in(*this); });
    if (!failure_ && form_.visible()) exec();
    form_.window_gone();  // a failure, or the end of the application, closes it without asking the form
    if (failure_) std::rethrow_exception(failure_);
}

}  // namespace cuvexa::qt
