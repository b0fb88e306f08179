// A form as a Qt dialog: one widget per control, and every key, click and change handed to the form.
#pragma once

#include <QDialog>
#include <QGridLayout>
#include <QHash>
#include <exception>
#include <functional>
#include <map>
#include <optional>
#include <string>

#include "cuvexa/dialogs.h"

namespace cuvexa::qt {

class Form_dialog final : public QDialog, public Form_window {
public:
    Form_dialog(Form& form, QWidget* parent);

    /// Shows the form until it hides. What its handlers threw ends it and is thrown here.
    void run();

    // ---- What the form asks ----------------------------------------------------------------------------------------

    void refresh(Control& control) override;
    void set_focus(Control& control) override;
    void hide() override;
    std::optional<std::string> choose(Choice_list& list) override;

    /// As the form's second button.
    void reject() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void add_rows(QGridLayout& grid);
    void add_row(QGridLayout& grid, const Form_row& row);
    QWidget* add(Control& control, const QString& accessible_name);
    QWidget* make_widget(Control& control);
    QWidget* make_field(LookupTextBox& field);
    QWidget* make_box(Check_box& box);
    QWidget* make_picker(DatePicker& picker);
    QWidget* make_button(Bar_button& button);
    QWidget* buttons();

    void refresh_field(LookupTextBox& field);
    bool key_pressed(int key, Qt::KeyboardModifiers modifiers);
    void focus_came(Control& control);

    /// Runs what the user's act does in the form; nothing may be thrown through Qt's event loop.
    void act(const std::function<void()>& body);

    Form& form_;
    std::map<const Control*, QWidget*> widgets_;
    std::map<const QObject*, Control*> controls_;
    bool refreshing_ = false;
    std::exception_ptr failure_;
};

}  // namespace cuvexa::qt
