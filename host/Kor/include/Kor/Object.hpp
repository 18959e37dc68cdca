#pragma once
// Kor::Object: the root of classes that travel as user data or counted references. Run-time
// class information is the language's own; CheckedCast throws ClassCastException ("Bad cast.").

#include <typeinfo>

#include "Kor/Exceptions.hpp"

namespace Kor {

class Object {
public:
    virtual ~Object () = default;

    // The dynamic class of the object, for diagnostics.
    const char* GetClassName () const { return typeid (*this).name (); }

protected:
    Object () = default;
    Object (const Object&) = default;
    Object& operator= (const Object&) = default;
};

// Null when object is null or of another class.
template <typename T, typename U>
T* DynamicCast (U* object)
{
    return dynamic_cast<T*> (object);
}

template <typename T, typename U>
const T* DynamicCast (const U* object)
{
    return dynamic_cast<const T*> (object);
}

template <typename T, typename U>
bool IsInstanceOf (const U* object)
{
    return dynamic_cast<const T*> (object) != nullptr;
}

// Throws ClassCastException when object is not a T.
template <typename T, typename U>
T& CheckedCast (U& object)
{
    T* result = dynamic_cast<T*> (&object);
    if (result == nullptr) throw ClassCastException ();
    return *result;
}

template <typename T, typename U>
const T& CheckedCast (const U& object)
{
    const T* result = dynamic_cast<const T*> (&object);
    if (result == nullptr) throw ClassCastException ();
    return *result;
}

}   // namespace Kor
