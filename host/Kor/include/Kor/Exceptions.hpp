#pragma once
// The foundation library's exceptions. Their texts are part of the contract: callers and
// tests compare them.

#include <stdexcept>
#include <string>

namespace Kor {

class Exception : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// A null Ref or Owner was dereferenced.
class NullReferenceException : public Exception {
public:
    NullReferenceException () : Exception ("Null reference.") {}
};

// A checked downcast found an object of another class.
class ClassCastException : public Exception {
public:
    ClassCastException () : Exception ("Bad cast.") {}
};

// A hash table was asked for a key that it does not hold.
class KeyNotFoundException : public Exception {
public:
    KeyNotFoundException () : Exception ("Key not found.") {}
};

// A checked container access used an index outside the container.
class IndexOutOfRangeException : public Exception {
public:
    IndexOutOfRangeException () : Exception ("Index out of range.") {}
};

}   // namespace Kor
