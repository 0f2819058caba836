#pragma once

#include <utility>

#include <glib-object.h>

namespace orvane::studio {

/// One reference to a GObject, given back at the end.
template <class T>
class ObjectRef {
 public:
    ObjectRef() = default;
    /// Takes over a reference that the caller owns.
    explicit ObjectRef(T* owned) : object_(owned) {}
    ~ObjectRef() { reset(); }
    ObjectRef(ObjectRef&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    ObjectRef& operator=(ObjectRef&& other) noexcept {
        if (this != &other) reset(std::exchange(other.object_, nullptr));
        return *this;
    }
    ObjectRef(const ObjectRef&) = delete;
    ObjectRef& operator=(const ObjectRef&) = delete;

    /// A reference beside those that there are.
    [[nodiscard]] static ObjectRef share(T* object) {
        return ObjectRef(object != nullptr ? static_cast<T*>(g_object_ref(object)) : nullptr);
    }

    void reset(T* owned = nullptr) {
        if (object_ != nullptr) g_object_unref(object_);
        object_ = owned;
    }
    [[nodiscard]] T* get() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }

 private:
    T* object_ = nullptr;
};

/// Text of GLib's, as a string; empty for null.
struct FreeText {
    void operator()(char* text) const { g_free(text); }
};

}  // namespace orvane::studio
