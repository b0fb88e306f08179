// Where the focus is and what keys do, the same in every form.
#include <algorithm>
#include <utility>

#include "core/case.h"
#include "core/report.h"
#include "cuvexa/dialogs.h"

namespace cuvexa {

Form::Form(Module& module, std::string name, std::string caption)
    : module_(module),
      name_(std::move(name)),
      caption_(std::move(caption)),
      color_scheme_(*this, "ColorScheme"),
      buttons_(*this, "Controles", "Aceptar", "Cancelar") {}

Form::~Form() = default;

Control* Form::find(const std::string& name) const {
    const auto found = std::find_if(controls_.begin(), controls_.end(),
                                    [&](const Control* control) { return same_text(control->Name(), name); });
    return found == controls_.end() ? nullptr : *found;
}

// ---- Focus ---------------------------------------------------------------------------------------------------------

void Form::shown_in(Form_window& window) {
    window_ = &window;
    active_ = nullptr;
    const auto first = std::find_if(tab_order_.begin(), tab_order_.end(),
                                    [](const Control* control) { return control->TabStop && control->takes_focus(); });
    if (first != tab_order_.end()) set_focus(**first);
}

void Form::set_focus(Control& control) {
    active_ = &control;
    if (window_) window_->set_focus(control);
    if (control.GotFocus) control.GotFocus();
}

bool Form::commit() {
    auto* field = dynamic_cast<LookupTextBox*>(active_);
    return !field || field->commit();
}

bool Form::leave() {
    if (!commit()) return false;
    const auto* field = dynamic_cast<LookupTextBox*>(active_);
    if (field && field->Enter) field->Enter();
    return true;
}

void Form::go_to(Control& control) {
    if (&control == active_ || !window_) return;
    if (!control.takes_focus()) {
        if (active_) window_->set_focus(*active_);
        return;
    }
    // A refused key does not hold the mouse: it stays refused, and accepting the form says so. On the way to a button the
    // fields stay as the user sees them.
    if (dynamic_cast<Bar_button*>(&control)) {
        commit();
    } else {
        leave();
    }
    set_focus(control);
}

Control* Form::next(bool backwards) const {
    const auto count = tab_order_.size();
    const auto at =
        static_cast<std::size_t>(std::find(tab_order_.begin(), tab_order_.end(), active_) - tab_order_.begin());
    for (std::size_t step = 1; step <= count; ++step) {
        Control* candidate = tab_order_[(at + (backwards ? count - step : step)) % count];
        if (candidate->TabStop && candidate->takes_focus()) return candidate;
    }
    return nullptr;
}

void Form::step(bool backwards) {
    const auto* field = dynamic_cast<LookupTextBox*>(active_);
    if (!leave() && field->tabonentercancel) return;
    if (auto* control = next(backwards); control && control != active_) set_focus(*control);
}

// ---- Keys and clicks -----------------------------------------------------------------------------------------------

bool Form::key_down(int code, bool shift, bool control) {
    if (!window_) return false;
    if (control) return code == key_f4;  // swallowed: windows know it as a key of their own
    const bool in_date = dynamic_cast<DatePicker*>(active_) != nullptr;
    auto* field = dynamic_cast<LookupTextBox*>(active_);
    switch (code) {
        case key_f4:
            if (!in_date) press(buttons_.b1);
            return true;
        case key_escape:
            if (!in_date) press(buttons_.b2);
            return true;
        case key_enter:
            step(false);
            return true;
        case key_tab:
            step(shift);
            return true;
        case key_f2:
            if (!field) return false;
            if (field->KeyDown) field->KeyDown(code, shift);
            field->open_list();
            return true;
        default:
            return false;
    }
}

void Form::type(LookupTextBox& field, const std::string& text) {
    field.type(text);
}

void Form::click(Check_box& box) {
    if (box.Enabled()) box.Value(box.Value() == 0 ? 1 : 0);
}

void Form::pick(DatePicker& picker, Date date) {
    if (picker.Enabled()) picker.Value(date);
}

void Form::press(Bar_button& button) {
    if (!window_) return;
    if (&button == &buttons_.b2) {
        if (buttons_.B2Click) buttons_.B2Click();
        return;
    }
    commit();  // what was typed last counts
    if (buttons_.B1Click) buttons_.B1Click();
}

void Form::close() {
    press(buttons_.b2);
}

// ---- For the forms themselves --------------------------------------------------------------------------------------

void Form::report(const std::string& message, const std::string& routine, const std::string& code) {
    module_.session().ReportError(message, critical_icon, routine, "", "Cuvexa", code);
}

void Form::accept() {
    accepted_ = true;
    hide();
}

void Form::hide() {
    auto* window = std::exchange(window_, nullptr);
    if (window) window->hide();
}

}  // namespace cuvexa
