// What automation hands around, held by objects that give it back: interfaces, strings, variants.
#pragma once

#include <oaidl.h>
#include <oleauto.h>
#include <windows.h>

#include <string>
#include <string_view>
#include <utility>

#undef GetUserName  // members of that name keep it, whichever header comes first

namespace cuvexa::com {

/// UTF-8 to UTF-16 and back. What is malformed becomes U+FFFD; null characters inside are kept.
std::wstring wide(std::string_view utf8);
std::string utf8(std::wstring_view wide);

/// Whether two names are the same to the system, which does not regard case.
bool same_name(std::wstring_view a, std::wstring_view b);

/// The text of a BSTR; a null one is the empty text.
std::string text_of(BSTR string);

/// A BSTR that the caller frees. Throws std::bad_alloc.
BSTR new_string(std::string_view utf8);

/// A counted reference to an interface.
template <class Interface>
class Pointer {
public:
    Pointer() = default;
    Pointer(std::nullptr_t) {}
    Pointer(const Pointer& other) : interface_(other.interface_) {
        if (interface_) interface_->AddRef();
    }
    Pointer(Pointer&& other) noexcept : interface_(std::exchange(other.interface_, nullptr)) {}
    Pointer& operator=(Pointer other) noexcept {
        std::swap(interface_, other.interface_);
        return *this;
    }
    ~Pointer() {
        if (interface_) interface_->Release();
    }

    /// Takes over a reference that was counted already.
    static Pointer owning(Interface* counted) {
        Pointer result;
        result.interface_ = counted;
        return result;
    }
    /// Counts a reference of its own.
    static Pointer sharing(Interface* other) {
        if (other) other->AddRef();
        return owning(other);
    }

    Interface* get() const { return interface_; }
    Interface* operator->() const { return interface_; }
    explicit operator bool() const { return interface_ != nullptr; }

    /// Gives the reference away, counted.
    Interface* release() { return std::exchange(interface_, nullptr); }

    /// Where a function puts a counted reference.
    Interface** receive() {
        *this = nullptr;
        return &interface_;
    }
    void** receive_void() { return reinterpret_cast<void**>(receive()); }

    /// The same object by another interface; null when it has none.
    template <class Other>
    Pointer<Other> as(REFIID iid) const {
        Pointer<Other> result;
        if (interface_ && FAILED(interface_->QueryInterface(iid, result.receive_void()))) result = nullptr;
        return result;
    }

private:
    Interface* interface_ = nullptr;
};

/// A BSTR of one's own.
class String {
public:
    String() = default;
    explicit String(std::string_view utf8) : string_(new_string(utf8)) {}
    String(const String&) = delete;
    String& operator=(const String&) = delete;
    ~String() { SysFreeString(string_); }

    BSTR get() const { return string_; }
    BSTR release() { return std::exchange(string_, nullptr); }
    BSTR* receive() {
        SysFreeString(release());
        return &string_;
    }
    std::string text() const { return text_of(string_); }

private:
    BSTR string_ = nullptr;
};

/// A VARIANT of one's own.
class Any {
public:
    Any() { VariantInit(&value_); }
    Any(Any&& other) noexcept : value_(other.value_) { VariantInit(&other.value_); }
    Any& operator=(Any&& other) noexcept {
        std::swap(value_, other.value_);
        return *this;
    }
    ~Any() { VariantClear(&value_); }

    VARIANT* get() { return &value_; }
    const VARIANT* get() const { return &value_; }
    VARIANT* operator->() { return &value_; }
    const VARIANT* operator->() const { return &value_; }

    /// Gives the value away.
    VARIANT release() {
        VARIANT value = value_;
        VariantInit(&value_);
        return value;
    }

private:
    VARIANT value_;
};

}  // namespace cuvexa::com
