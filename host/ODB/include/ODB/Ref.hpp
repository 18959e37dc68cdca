#pragma once
// ODB::ConstRef<T> and ODB::Ref<T>: references to objects of the object database. A reference
// may refer to nothing; before its object is used it is loaded (Load), which fails cleanly,
// returning false, for an empty reference. Using an empty reference throws Kor's
// NullReferenceException ("Null reference."). Two references are equal when they name the same
// object, so they serve as keys of hash sets and maps. Copies share the object and start
// unloaded, so each user loads what it uses.

#include <cstddef>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

#include "Kor/Exceptions.hpp"

namespace ODB {

template <typename T>
class Ref;

// Whether two pointers name the same object; related types are compared after conversion, so
// that a base-class view of an object equals the object.
template <typename A, typename B>
bool SameObject (const A* a, const B* b)
{
    if constexpr (std::is_convertible_v<const B*, const A*>)
        return a == static_cast<const A*> (b);
    else if constexpr (std::is_convertible_v<const A*, const B*>)
        return static_cast<const B*> (a) == b;
    else if constexpr (std::is_polymorphic_v<A> && std::is_polymorphic_v<B>)
        return dynamic_cast<const void*> (a) == dynamic_cast<const void*> (b);
    else
        return static_cast<const void*> (a) == static_cast<const void*> (b);
}

// A reference through which the object can only be read.
template <typename T>
class ConstRef {
public:
    ConstRef () = default;
    ConstRef (std::nullptr_t) {}
    explicit ConstRef (std::shared_ptr<const T> shared) : ptr (std::move (shared)) {}
    ConstRef (const ConstRef& other) : ptr (other.ptr) {}
    ConstRef& operator= (const ConstRef& other)
    {
        ptr = other.ptr;
        loaded = false;
        return *this;
    }
    template <typename U, typename = std::enable_if_t<std::is_convertible_v<const U*, const T*>>>
    ConstRef (const ConstRef<U>& other) : ptr (other.GetShared ()) {}
    template <typename U, typename = std::enable_if_t<std::is_convertible_v<const U*, const T*>>>
    ConstRef (const Ref<U>& other) : ptr (other.GetShared ()) {}

    static ConstRef FromShared (std::shared_ptr<const T> shared)
    {
        ConstRef r;
        r.ptr = std::move (shared);
        return r;
    }

    bool IsNull () const { return ptr == nullptr; }
    bool IsEmpty () const { return ptr == nullptr; }
    explicit operator bool () const { return ptr != nullptr; }
    void Clear ()
    {
        ptr.reset ();
        loaded = false;
    }

    // Makes the object ready for use; false, with nothing loaded, for an empty reference.
    bool Load () const
    {
        loaded = ptr != nullptr;
        return loaded;
    }
    bool IsLoaded () const { return loaded; }

    // Null when empty.
    const T* Get () const { return ptr.get (); }
    const T* operator-> () const { return &Deref (); }
    const T& operator* () const { return Deref (); }

    // Empty when the object is not a U (or the reference is empty).
    template <typename U>
    ConstRef<U> DynamicCastTo () const { return ConstRef<U>::FromShared (std::dynamic_pointer_cast<const U> (ptr)); }

    // Identity: the same object, also when viewed through a base class.
    template <typename U>
    bool operator== (const ConstRef<U>& other) const { return SameObject (ptr.get (), other.Get ()); }
    bool operator== (std::nullptr_t) const { return ptr == nullptr; }

    const std::shared_ptr<const T>& GetShared () const { return ptr; }

private:
    const T& Deref () const
    {
        if (ptr == nullptr) throw Kor::NullReferenceException ();
        return *ptr;
    }

    std::shared_ptr<const T> ptr;
    mutable bool             loaded = false;
};

// A reference through which the object can be changed.
template <typename T>
class Ref {
public:
    Ref () = default;
    Ref (std::nullptr_t) {}
    explicit Ref (std::shared_ptr<T> shared) : ptr (std::move (shared)) {}
    Ref (const Ref& other) : ptr (other.ptr) {}
    Ref& operator= (const Ref& other)
    {
        ptr = other.ptr;
        loaded = false;
        return *this;
    }
    template <typename U, typename = std::enable_if_t<std::is_convertible_v<U*, T*>>>
    Ref (const Ref<U>& other) : ptr (other.GetShared ()) {}

    static Ref FromShared (std::shared_ptr<T> shared)
    {
        Ref r;
        r.ptr = std::move (shared);
        return r;
    }

    bool IsNull () const { return ptr == nullptr; }
    bool IsEmpty () const { return ptr == nullptr; }
    explicit operator bool () const { return ptr != nullptr; }

    // Makes the object ready for use; false, with nothing loaded, for an empty reference.
    bool Load () const
    {
        loaded = ptr != nullptr;
        return loaded;
    }
    bool IsLoaded () const { return loaded; }

    T* Get () const { return ptr.get (); }
    T* operator-> () const { return &Deref (); }
    T& operator* () const { return Deref (); }

    ConstRef<T> AsConst () const { return ConstRef<T> (*this); }

    template <typename U>
    bool operator== (const Ref<U>& other) const { return SameObject (ptr.get (), other.Get ()); }

    const std::shared_ptr<T>& GetShared () const { return ptr; }

private:
    T& Deref () const
    {
        if (ptr == nullptr) throw Kor::NullReferenceException ();
        return *ptr;
    }

    std::shared_ptr<T> ptr;
    mutable bool       loaded = false;
};

template <typename T, typename... Args>
Ref<T> NewRef (Args&&... args)
{
    return Ref<T>::FromShared (std::make_shared<T> (std::forward<Args> (args)...));
}

// A new object behind a fresh reference.
template <typename T, typename... Args>
Ref<T> NewObject (Args&&... args)
{
    return NewRef<T> (std::forward<Args> (args)...);
}

}   // namespace ODB

template <typename T>
struct std::hash<ODB::ConstRef<T>> {
    std::size_t operator() (const ODB::ConstRef<T>& r) const noexcept { return std::hash<const void*> {} (r.Get ()); }
};
