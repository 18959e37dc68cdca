#pragma once
// Kor::Ref<T, Counter>: a counted reference. Copies share the object; the last one deletes it.
// Dereferencing a null Ref throws NullReferenceException ("Null reference.").

#include <cstddef>
#include <memory>
#include <type_traits>
#include <utility>

#include "Kor/Exceptions.hpp"

namespace Kor {

// Counter policies. Everything in this code base runs on the user-interface thread; both
// policies count safely, the distinction documents intent at the use site.
struct Counter {};
struct AtomicCounter {};

template <typename T, typename C = Counter>
class Ref {
public:
    Ref () = default;
    Ref (std::nullptr_t) {}
    // Takes ownership of a new object.
    explicit Ref (T* object) : ptr (object) {}
    template <typename U, typename = std::enable_if_t<std::is_convertible_v<U*, T*>>>
    Ref (const Ref<U, C>& other) : ptr (other.GetShared ()) {}
    template <typename U, typename = std::enable_if_t<std::is_convertible_v<U*, T*>>>
    Ref (Ref<U, C>&& other) : ptr (std::move (other).TakeShared ()) {}

    T* operator-> () const { return &Deref (); }
    T& operator* () const { return Deref (); }

    T*   Get () const { return ptr.get (); }
    bool IsNull () const { return ptr == nullptr; }
    bool IsValid () const { return ptr != nullptr; }
    explicit operator bool () const { return ptr != nullptr; }
    void Clear () { ptr.reset (); }
    long GetCount () const { return ptr.use_count (); }

    template <typename U>
    bool operator== (const Ref<U, C>& other) const { return ptr.get () == other.Get (); }
    bool operator== (std::nullptr_t) const { return ptr == nullptr; }

    // Null when the object is not a U (or the reference is null).
    template <typename U>
    Ref<U, C> DynamicCastTo () const { return Ref<U, C>::FromShared (std::dynamic_pointer_cast<U> (ptr)); }
    // Throws ClassCastException when the object is not a U; a null reference stays null.
    template <typename U>
    Ref<U, C> CheckedCastTo () const
    {
        if (ptr == nullptr) return Ref<U, C> ();
        auto cast = std::dynamic_pointer_cast<U> (ptr);
        if (cast == nullptr) throw ClassCastException ();
        return Ref<U, C>::FromShared (std::move (cast));
    }

    static Ref FromShared (std::shared_ptr<T> shared) { Ref r; r.ptr = std::move (shared); return r; }
    const std::shared_ptr<T>& GetShared () const& { return ptr; }
    std::shared_ptr<T>        TakeShared () && { return std::move (ptr); }

private:
    T& Deref () const
    {
        if (ptr == nullptr) throw NullReferenceException ();
        return *ptr;
    }

    std::shared_ptr<T> ptr;
};

template <typename T, typename C = Counter, typename... Args>
Ref<T, C> NewRef (Args&&... args)
{
    return Ref<T, C>::FromShared (std::make_shared<T> (std::forward<Args> (args)...));
}

}   // namespace Kor
