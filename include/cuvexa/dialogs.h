// The two dialogs without their windows: forms made of the suite's controls, and what a toolkit must offer to show
// them.
//
// A form holds all behaviour. A toolkit draws the form's rows, tells it what the user did (keys, typing, focus, clicks)
// and does what the form asks of its window. So every toolkit, and every test, meets the same rules. Texts are UTF-8.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cuvexa/date.h"
#include "cuvexa/module.h"

namespace cuvexa {

class Form;

// Codes of the keys that forms know.
inline constexpr int key_tab = 9;
inline constexpr int key_enter = 13;
inline constexpr int key_escape = 27;
inline constexpr int key_f2 = 113;
inline constexpr int key_f4 = 115;

/// What every control has. Properties are read and let under one name; a let shows at once in the window.
class Control {
public:
    Control(Form& form, std::string name);
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    const std::string& Name() const { return name_; }

    bool Enabled() const { return enabled_; }
    void Enabled(bool value);

    /// Whether the user can go there.
    virtual bool takes_focus() const { return enabled_; }

    /// Whether Tab stops there.
    bool TabStop = true;

    /// Raised after the focus came.
    std::function<void()> GotFocus;

protected:
    void changed();

    Form& form_;

private:
    std::string name_;
    bool enabled_ = true;
};

/// A label. `idetiqueta` is the name under which the suite knows its text.
class CaptionLabel : public Control {
public:
    CaptionLabel(Form& form, std::string name, std::string id, std::string text)
        : Control(form, std::move(name)), idetiqueta(std::move(id)), caption_(std::move(text)) {}

    bool takes_focus() const override { return false; }
    const std::string& caption() const { return caption_; }
    void caption(const std::string& value);

    std::string idetiqueta;

private:
    std::string caption_;
};

/// A container of other controls; it has a name and no look of its own.
class Frame : public Control {
public:
    using Control::Control;
    bool takes_focus() const override { return false; }
};

/// A catalogue as F2 searches it.
struct Catalogue {
    std::string title;
    std::string sql;                   ///< up to its last condition; every "LIKE ?" takes the text that is looked for
    std::string order;                 ///< the ORDER BY of the list, or empty
    std::vector<std::string> columns;  ///< names of the columns to show; the first is the key
};

/// A list of rows to choose from, narrowed by typing.
class Choice_list {
public:
    virtual ~Choice_list() = default;
    virtual std::string title() const = 0;
    virtual std::vector<std::string> columns() const = 0;

    /// The rows that hold `text` in one of the searched columns; all for an empty text. A failure of the database is
    /// reported and gives no rows.
    virtual std::vector<std::vector<std::string>> rows(const std::string& text) = 0;
};

/// A text field that knows a catalogue: it validates the key on leaving, shows the description in another field, and
/// opens a list with F2.
class LookupTextBox : public Control {
public:
    using Control::Control;

    bool takes_focus() const override { return Enabled() && !Locked(); }

    /// The text. While `esclave` is on, only a key that the validation query found; empty until then.
    std::string Text() const { return esclave && !accepted_ ? std::string() : shown_; }
    /// Puts a text without asking the validation query.
    void Text(const std::string& value);

    /// What stands in the field, accepted or not.
    const std::string& shown() const { return shown_; }

    /// True after the validation query found nothing for what is shown.
    bool refused() const { return refused_; }

    bool Locked() const { return locked_; }
    void Locked(bool value);

    /// The validation query; "?" stands for the key. Without one every key is accepted.
    const std::string& sql() const { return sql_; }
    void sql(const std::string& value);

    std::string idconsulta;             ///< catalogue of the list
    std::string sql_columna;            ///< column of the validation query that holds the description
    std::string sql_control_resultado;  ///< control that shows the description (letter case does not matter)
    std::string formato;                ///< input format: "0000" fills a number with zeros, ">" first makes capitals
    std::string font;                   ///< font by name; empty: that of the form
    bool esclave = false;               ///< only keys of the catalogue are accepted
    bool mayusculas = false;            ///< letters become capitals
    bool tabonenter = false;            ///< Enter goes to the next control
    bool tabonentercancel = false;      ///< the keyboard does not leave a key that was refused

    std::optional<Catalogue> search;      ///< replaces the catalogue of `idconsulta` in the list
    std::vector<std::string> conditions;  ///< further conditions of the list

    /// Raised when the user leaves the field for another control, after validation; not by a button.
    std::function<void()> Enter;
    /// Raised before the field uses a key.
    std::function<void(int code, bool shift)> KeyDown;

    /// Asks the validation query for what is shown and shows the description. False when it found nothing.
    bool validate();

    /// Validates what was typed since the last time. False when the key is refused and the field takes keys only.
    bool commit();

    /// Opens the list, when there is one; the chosen key is validated.
    void open_list();

    /// The user's typing: the whole text as it stands now.
    void type(const std::string& text);

private:
    std::optional<std::string> description_of(const std::string& key);
    void show_description(const std::string& description);

    std::string sql_;
    std::string shown_;
    bool locked_ = false;
    bool accepted_ = true;
    bool refused_ = false;
    bool typed_ = false;
};

class DatePicker : public Control {
public:
    using Control::Control;
    Date Value() const { return value_; }
    void Value(Date value);

private:
    Date value_;
};

class Check_box : public Control {
public:
    Check_box(Form& form, std::string name, std::string text)
        : Control(form, std::move(name)), caption(std::move(text)) {}

    /// 0 unchecked, 1 checked. A let that changes it raises `Click`, as a click of the user does.
    int Value() const { return value_; }
    void Value(int value);

    std::string caption;
    std::function<void()> Click;

private:
    int value_ = 0;
};

/// One of the two buttons of a bar.
class Bar_button : public Control {
public:
    using Control::Control;
    std::string caption;
    std::string shortcut;  ///< shown beside the caption
};

/// The two buttons of a form: the first accepts, the second cancels.
class ButtonBar : public Control {
public:
    ButtonBar(Form& form, const std::string& name, std::string b1caption, std::string b2caption);
    bool takes_focus() const override { return false; }

    std::string caption;
    Bar_button b1;
    Bar_button b2;
    std::function<void()> B1Click;
    std::function<void()> B2Click;
};

/// The suite's colours, as 0xRRGGBB: the one place that says how windows look.
struct Suite_colors {
    std::uint32_t form = 0xF3F6F9;
    std::uint32_t text = 0x1B2733;
    std::uint32_t quiet_text = 0x52606D;
    std::uint32_t field = 0xFFFFFF;
    std::uint32_t locked_field = 0xE1E8EF;
    std::uint32_t disabled_text = 0x6B7785;
    std::uint32_t border = 0x8795A3;
    std::uint32_t accent = 0x0B5CAD;
    std::uint32_t accent_text = 0xFFFFFF;
    std::uint32_t refused = 0xB42318;
    std::uint32_t refused_field = 0xFDECEA;
};

/// Gives a form the suite's colours.
class ColorScheme : public Control {
public:
    using Control::Control;
    bool takes_focus() const override { return false; }
    Suite_colors colors;
};

/// One line of a form: a label, the control that it names, and what stands beside it. Any of them may be missing.
struct Form_row {
    CaptionLabel* label = nullptr;
    Control* field = nullptr;
    Control* beside = nullptr;
};

/// What a form asks of the window that shows it.
class Form_window {
public:
    virtual ~Form_window() = default;

    /// A property of the control changed.
    virtual void refresh(Control& control) = 0;
    /// The focus goes to the control.
    virtual void set_focus(Control& control) = 0;
    /// Ends the modal loop.
    virtual void hide() = 0;
    /// Lets the user choose a row of the list; its first column, or nothing.
    virtual std::optional<std::string> choose(Choice_list& list) = 0;
};

/// A modal form: its controls, where the focus is, and what keys do. Enter goes to the next control, from a button too, F4
/// accepts, Esc cancels; inside a date picker F4 and Esc do nothing.
class Form {
public:
    Form(Module& module, std::string name, std::string caption);
    virtual ~Form();
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    Module& module() { return module_; }
    const std::string& Name() const { return name_; }
    const std::string& Caption() const { return caption_; }

    /// The lines from top to bottom.
    const std::vector<Form_row>& rows() const { return rows_; }
    /// The controls that Tab walks through, in order and round.
    const std::vector<Control*>& tab_order() const { return tab_order_; }
    /// The control of that name, whatever the case of its letters; null when there is none.
    Control* find(const std::string& name) const;

    const Suite_colors& colors() const { return color_scheme_.colors; }
    ButtonBar& buttons() { return buttons_; }
    Control* active() const { return active_; }
    bool accepted() const { return accepted_; }
    bool visible() const { return window_ != nullptr; }

    // ---- What the window tells the form ----------------------------------------------------------------------------

    /// The window stands; the focus goes to the first control that takes it.
    void shown_in(Form_window& window);
    /// The user went to the control with the mouse.
    void go_to(Control& control);
    /// A key went down; `shift`, `control`: with that key. True when the form used it, and the window must not.
    bool key_down(int code, bool shift = false, bool control = false);
    /// The text of the field is now this one.
    void type(LookupTextBox& field, const std::string& text);
    void click(Check_box& box);
    void pick(DatePicker& picker, Date date);
    void press(Bar_button& button);
    /// The user closed the window: as Cancelar.
    void close();
    /// The window is gone, whether the form hid it or not.
    void window_gone() { window_ = nullptr; }

    // ---- For controls ----------------------------------------------------------------------------------------------

    Form_window* window() const { return window_; }
    void adopt(Control& control) { controls_.push_back(&control); }

protected:
    void set_focus(Control& control);
    /// Shows a message of the routine in the suite's error dialog.
    void report(const std::string& message, const std::string& routine, const std::string& code);
    void accept();
    void hide();

    std::vector<Form_row> rows_;
    std::vector<Control*> tab_order_;

private:
    void step(bool backwards);
    /// Validates what was typed in the active field. False when it keeps the keyboard.
    bool commit();
    /// The same, and tells the field that the user leaves it for another control.
    bool leave();
    Control* next(bool backwards) const;

    Module& module_;
    std::string name_;
    std::string caption_;
    std::vector<Control*> controls_;
    Form_window* window_ = nullptr;
    Control* active_ = nullptr;
    bool accepted_ = false;

    ColorScheme color_scheme_;

protected:
    ButtonBar buttons_;
};

/// A failure or refusal as the suite's error dialog shows it.
struct Error_report {
    std::string description;
    int style = 16;  ///< 16: critical icon
    std::string routine;
    std::string title;
    std::string project;
    std::string code;
};

/// What draws forms. A host gives one to its `Module`; without it the two dialogs cannot be shown.
class Dialog_toolkit {
public:
    virtual ~Dialog_toolkit() = default;

    /// Why no dialog can be shown now, in Spanish; empty when one can.
    virtual std::string obstacle() = 0;

    /// Shows the form and returns when it has been hidden.
    virtual void show_modal(Form& form) = 0;

    /// Shows the suite's error dialog over whatever is open and returns when the user has closed it.
    virtual void show_error(const Error_report& report) = 0;
};

}  // namespace cuvexa
