#pragma once
// ODB::ConstRef and ODB::Ref: references into the object database. A reference may refer to
// nothing; before its object is used it must be loaded (Load), which fails cleanly, returning
// false, for an empty reference. Dereferencing a reference that is not loaded throws the
// foundation library's null-reference exception. Copies share the object and take over
// whether it was loaded.

#include <memory>
#include <utility>

#include "Kor/Exceptions.hpp"

namespace ODB {

template <typename T>
class ConstRef {
public:
    ConstRef () = default;
    ConstRef (std::nullptr_t) {}
    explicit ConstRef (std::shared_ptr<const T> object) : object (std::move (object)) {}
    template <typename U>
    ConstRef (const ConstRef<U>& other) : object (other.GetShared ()), loaded (other.IsLoaded ()) {}

    // Whether the reference refers to nothing.
    bool IsNull () const { return object == nullptr; }
    bool IsLoaded () const { return loaded; }
    // Makes the object usable; false (and nothing loaded) for an empty reference.
    bool Load () const
    {
        loaded = object != nullptr;
        return loaded;
    }

    // The object when loaded, else null.
    const T* Get () const { return loaded ? object.get () : nullptr; }
    const T* operator-> () const { return &Deref (); }
    const T& operator* () const { return Deref (); }

    bool operator== (const ConstRef& other) const { return object == other.object; }

    const std::shared_ptr<const T>& GetShared () const { return object; }

private:
    const T& Deref () const
    {
        if (!loaded || object == nullptr) throw Kor::NullReferenceException ();
        return *object;
    }

    std::shared_ptr<const T> object;
    mutable bool             loaded = false;
};

template <typename T>
class Ref {
public:
    Ref () = default;
    Ref (std::nullptr_t) {}
    explicit Ref (std::shared_ptr<T> object) : object (std::move (object)) {}

    bool IsNull () const { return object == nullptr; }
    bool IsLoaded () const { return loaded; }
    bool Load () const
    {
        loaded = object != nullptr;
        return loaded;
    }

    T* Get () const { return loaded ? object.get () : nullptr; }
    T* operator-> () const { return &Deref (); }
    T& operator* () const { return Deref (); }

    // A read-only reference to the same object, loaded when this one is.
    operator ConstRef<T> () const
    {
        ConstRef<T> result {std::shared_ptr<const T> (object)};
        if (loaded) result.Load ();
        return result;
    }

    bool operator== (const Ref& other) const { return object == other.object; }

    const std::shared_ptr<T>& GetShared () const { return object; }

private:
    T& Deref () const
    {
        if (!loaded || object == nullptr) throw Kor::NullReferenceException ();
        return *object;
    }

    std::shared_ptr<T> object;
    mutable bool       loaded = false;
};

// A new object behind a fresh reference.
template <typename T, typename... Args>
Ref<T> NewObject (Args&&... args)
{
    return Ref<T> (std::make_shared<T> (std::forward<Args> (args)...));
}

}   // namespace ODB
