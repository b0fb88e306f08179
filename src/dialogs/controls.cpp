// The suite's controls: their properties, and what a lookup field does with a key.
#include <utility>

#include "core/query.h"
#include "core/report.h"
#include "cuvexa/dialogs.h"
#include "dialogs/catalogues.h"
#include "dialogs/key_text.h"

namespace cuvexa {

Control::Control(Form& form, std::string name) : form_(form), name_(std::move(name)) {
    form.adopt(*this);
}

void Control::Enabled(bool value) {
    enabled_ = value;
    changed();
}

void Control::changed() {
    if (auto* window = form_.window()) window->refresh(*this);
}

void CaptionLabel::caption(const std::string& value) {
    caption_ = value;
    changed();
}

void DatePicker::Value(Date value) {
    value_ = value;
    changed();
}

void Check_box::Value(int value) {
    if (value == value_) return;
    value_ = value;
    changed();
    if (Click) Click();
}

ButtonBar::ButtonBar(Form& form, const std::string& name, std::string b1caption, std::string b2caption)
    : Control(form, name), b1(form, name + ".b1"), b2(form, name + ".b2") {
    b1.caption = std::move(b1caption);
    b1.shortcut = "F4";
    b2.caption = std::move(b2caption);
    b2.shortcut = "Esc";
}

// ---- LookupTextBox -------------------------------------------------------------------------------------------------

void LookupTextBox::Locked(bool value) {
    locked_ = value;
    changed();
}

void LookupTextBox::sql(const std::string& value) {
    sql_ = value;
    changed();
}

void LookupTextBox::Text(const std::string& value) {
    shown_ = value;
    accepted_ = true;
    refused_ = false;
    typed_ = false;
    changed();
}

void LookupTextBox::type(const std::string& text) {
    if (!takes_focus()) return;
    const std::string value = mayusculas || formato.starts_with('>') ? dialogs::capitals(text) : text;
    if (value == shown_) return;
    shown_ = value;
    accepted_ = false;
    refused_ = false;
    typed_ = true;
    changed();
    show_description("");  // that of another key
}

bool LookupTextBox::commit() {
    if (!typed_) return !(esclave && refused_);
    shown_ = dialogs::formatted(shown_, formato);
    return validate() || !esclave;
}

bool LookupTextBox::validate() {
    typed_ = false;
    if (shown_.empty() || sql_.empty()) {
        accepted_ = true;
        refused_ = false;
    } else {
        std::optional<std::string> description;
        reporting(form_.module(), Name() + "_Validate()", "", [&] { description = description_of(shown_); });
        accepted_ = description.has_value();
        refused_ = !accepted_;
        show_description(description.value_or(""));
    }
    changed();
    return accepted_;
}

std::optional<std::string> LookupTextBox::description_of(const std::string& key) {
    const Rows rows = query_text(form_.module(), dialogs::with_key(sql_, key));
    if (rows.eof()) return std::nullopt;
    return rows.text(sql_columna);
}

void LookupTextBox::show_description(const std::string& description) {
    auto* result = dynamic_cast<LookupTextBox*>(form_.find(sql_control_resultado));
    if (result) result->Text(description);
}

void LookupTextBox::open_list() {
    auto* window = form_.window();
    auto searched = search ? search : dialogs::catalogue(idconsulta);
    if (!window || !searched || !takes_focus()) return;
    auto list = dialogs::choice_list(form_.module(), *searched, conditions);
    const auto chosen = window->choose(*list);
    if (!chosen) return;
    Text(*chosen);
    validate();
}

}  // namespace cuvexa
