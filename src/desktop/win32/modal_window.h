// What the windows of this room share: owner, modal loop, resolution, and failures on their way to the caller.
#pragma once

#include <exception>
#include <memory>
#include <string>
#include <vector>

#include "cuvexa/dialogs.h"
#include "desktop/win32/looks.h"
#include "desktop/win32/system.h"

namespace cuvexa::win32 {

/// The windows of one toolkit that are open, each over the one before it.
class Open_windows {
public:
    /// What the next window belongs to: the last one shown, or else the active window of the thread, if any.
    HWND owner() const;

    void opened(HWND window) { windows_.push_back(window); }
    void closed() { windows_.pop_back(); }

private:
    std::vector<HWND> windows_;
};

/// The window class of this thread's windows, as long as there is one of them: a DLL that is unloaded leaves none
/// behind.
class Window_class {
public:
    explicit Window_class(WNDPROC procedure);
    /// The system keeps the class while an outer window uses it.
    ~Window_class() { UnregisterClassW(name_.c_str(), this_module()); }
    Window_class(const Window_class&) = delete;
    Window_class& operator=(const Window_class&) = delete;
    const wchar_t* name() const { return name_.c_str(); }

private:
    std::wstring name_;
};

class Modal_window {
public:
    Modal_window(Open_windows& open, const std::wstring& title, const Suite_colors& colors, DWORD style);
    virtual ~Modal_window();
    Modal_window(const Modal_window&) = delete;
    Modal_window& operator=(const Modal_window&) = delete;

    HWND window() const { return window_; }

protected:
    /// Shows the window until it ends. What its handlers threw ends it and is thrown here; the end of the program's
    /// messages ends it and stays the end of the program's messages.
    void run();
    void end();

    Open_windows& open_windows() { return open_; }
    Looks& looks() { return *looks_; }
    int px(int units) const { return looks_->px(units); }

    HWND add_child(const wchar_t* class_name, const std::wstring& text, DWORD style, int id = 0);
    void place(HWND child, int x, int y, int width, int height) const;
    static void set_font(HWND child, HFONT font);

    // ---- What kinds of windows differ in ---------------------------------------------------------------------------

    /// The size of the inside that shows everything.
    virtual SIZE natural_size() = 0;
    /// Gives the children their fonts and places.
    virtual void arrange(SIZE inside) = 0;
    virtual void paint(HDC dc) = 0;
    /// The window stands.
    virtual void started() = 0;
    /// A key on its way to the window or a child. True when it must not get there.
    virtual bool key_pressed(int key) = 0;
    /// The user closes the window by its frame.
    virtual void close_asked() = 0;
    /// The window has the keyboard and hands it on.
    virtual void focus_came() = 0;
    virtual LRESULT message(UINT message, WPARAM wparam, LPARAM lparam);

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) noexcept;
    LRESULT handle(UINT message, WPARAM wparam, LPARAM lparam);
    void resolution_changed(int dpi, const RECT& suggested);
    void take_natural_size();
    void move_over_owner();
    void paint_now();
    void paint_all(HDC dc);
    void loop();
    bool taken_as_key(const MSG& message);
    template <class Body>
    void guarded(Body&& body) noexcept;

    Open_windows& open_;
    Window_class class_;
    HWND owner_;
    HWND window_ = nullptr;
    std::unique_ptr<Looks> looks_;
    bool ready_ = false;
    bool ended_ = false;
    bool quit_ = false;
    int quit_code_ = 0;
    std::exception_ptr failure_;
};

}  // namespace cuvexa::win32
