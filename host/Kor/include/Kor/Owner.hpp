#pragma once
// Kor::Owner<T>: the single owner of an object. Dereferencing a null Owner throws
// NullReferenceException ("Null reference.").

#include <cstddef>
#include <memory>
#include <type_traits>
#include <utility>

#include "Kor/Exceptions.hpp"

namespace Kor {

template <typename T>
class Owner {
public:
    Owner () = default;
    Owner (std::nullptr_t) {}
    explicit Owner (T* object) : ptr (object) {}
    Owner (std::unique_ptr<T> object) : ptr (std::move (object)) {}
    template <typename U, typename = std::enable_if_t<std::is_convertible_v<U*, T*>>>
    Owner (Owner<U>&& other) : ptr (other.Release ()) {}

    Owner (Owner&&) noexcept = default;
    Owner& operator= (Owner&&) noexcept = default;
    Owner (const Owner&) = delete;
    Owner& operator= (const Owner&) = delete;

    T* operator-> () const { return &Deref (); }
    T& operator* () const { return Deref (); }

    T*   Get () const { return ptr.get (); }
    bool IsNull () const { return ptr == nullptr; }
    bool IsValid () const { return ptr != nullptr; }
    explicit operator bool () const { return ptr != nullptr; }
    bool operator== (std::nullptr_t) const { return ptr == nullptr; }

    T*   Release () { return ptr.release (); }
    void Reset (T* object = nullptr) { ptr.reset (object); }

private:
    T& Deref () const
    {
        if (ptr == nullptr) throw NullReferenceException ();
        return *ptr;
    }

    std::unique_ptr<T> ptr;
};

template <typename T, typename... Args>
Owner<T> NewOwner (Args&&... args)
{
    return Owner<T> (std::make_unique<T> (std::forward<Args> (args)...));
}

// A shared pointer to an object that nobody may change.
template <typename T>
class ConstSharedPtr {
public:
    ConstSharedPtr () = default;
    ConstSharedPtr (std::nullptr_t) {}
    ConstSharedPtr (std::shared_ptr<const T> object) : ptr (std::move (object)) {}

    const T* operator-> () const { return &Deref (); }
    const T& operator* () const { return Deref (); }
    const T* Get () const { return ptr.get (); }
    bool     IsNull () const { return ptr == nullptr; }
    explicit operator bool () const { return ptr != nullptr; }
    const std::shared_ptr<const T>& GetShared () const { return ptr; }

private:
    const T& Deref () const
    {
        if (ptr == nullptr) throw NullReferenceException ();
        return *ptr;
    }

    std::shared_ptr<const T> ptr;
};

// Pass key: only T can make one, so a function taking Friend<T> can only be called by T.
template <typename T>
class Friend {
    friend T;
    Friend () = default;
};

}   // namespace Kor
