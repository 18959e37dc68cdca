#pragma once
// Kor::DynamicValue: a typed value with a status, exchanged between property handlers and the
// property list. Subclasses hold one bool, integer, number, string, guid list or string list.

#include <cstdint>
#include <memory>

#include "Kor/Array.hpp"
#include "Kor/Guid.hpp"
#include "Kor/Object.hpp"
#include "Kor/Owner.hpp"
#include "Kor/UniString.hpp"

namespace Kor {

// How a value turns into display text.
class DynamicValueConversionRules {
public:
    DynamicValueConversionRules () = default;
    // displayDigits: decimals of numbers (clamped to 0..15). flags: a combination of the Flag values.
    DynamicValueConversionRules (short displayDigits, int flags) : displayDigits (displayDigits), flags (flags) {}

    enum Flag {
        HideTrailingZeros = 1,   // 2.50 shows as 2.5, 3.00 as 3
    };

    short GetDisplayDigits () const { return displayDigits; }
    void  SetDisplayDigits (short digits) { displayDigits = digits; }
    int   GetFlags () const { return flags; }
    void  SetFlags (int value) { flags = value; }

    // Separator between the entries of list values.
    const UniString& GetListSeparator () const { return listSeparator; }
    void             SetListSeparator (const UniString& separator) { listSeparator = separator; }

private:
    short     displayDigits = 2;
    int       flags = 0;
    UniString listSeparator = UniString ("; ");
};

class DynamicValue : public Object {
public:
    enum Status : std::int32_t {
        Normal        = 0,   // holds a value
        Undefined     = 1,   // no value is known
        Mixed         = 2,   // several sources disagree (a multiple selection)
        UserUndefined = 3,   // the user has set the value to undefined on purpose
        NotAvailable  = 4,   // the value does not apply
    };

    ~DynamicValue () override = default;

    Status GetStatus () const { return status; }
    void   SetStatus (Status newStatus) { status = newStatus; }
    // Valid: the status is one of the known ones and, for Normal, the payload is usable
    // (e.g. a number is not NaN).
    bool IsValid () const;

    virtual Owner<DynamicValue> Clone () const = 0;
    // Same class, same status and, for Normal values, the same payload.
    bool Equals (const DynamicValue& other) const;

    // The text a user reads. Non-normal values give a word for their status.
    UniString ToDisplayText (const DynamicValueConversionRules& rules = {}) const;

protected:
    explicit DynamicValue (Status status) : status (status) {}
    DynamicValue (const DynamicValue&) = default;
    DynamicValue& operator= (const DynamicValue&) = default;

    virtual bool      PayloadIsValid () const { return true; }
    virtual bool      PayloadEquals (const DynamicValue& other) const = 0;
    virtual UniString PayloadToText (const DynamicValueConversionRules& rules) const = 0;

private:
    Status status;
};

class BoolValue : public DynamicValue {
public:
    explicit BoolValue (bool value = false, Status status = Normal) : DynamicValue (status), value (value) {}
    bool GetValue () const { return value; }
    void SetValue (bool newValue) { value = newValue; }
    Owner<DynamicValue> Clone () const override { return NewOwner<BoolValue> (*this); }

protected:
    bool      PayloadEquals (const DynamicValue& other) const override;
    UniString PayloadToText (const DynamicValueConversionRules& rules) const override;

private:
    bool value;
};

class IntValue : public DynamicValue {
public:
    explicit IntValue (std::int64_t value = 0, Status status = Normal) : DynamicValue (status), value (value) {}
    std::int64_t GetValue () const { return value; }
    void         SetValue (std::int64_t newValue) { value = newValue; }
    Owner<DynamicValue> Clone () const override { return NewOwner<IntValue> (*this); }

protected:
    bool      PayloadEquals (const DynamicValue& other) const override;
    UniString PayloadToText (const DynamicValueConversionRules& rules) const override;

private:
    std::int64_t value;
};

// A real number in base units (metres, square metres, cubic metres, degrees, or unitless).
class NumValue : public DynamicValue {
public:
    explicit NumValue (double value = 0.0, Status status = Normal) : DynamicValue (status), value (value) {}
    double GetValue () const { return value; }
    void   SetValue (double newValue) { value = newValue; }
    Owner<DynamicValue> Clone () const override { return NewOwner<NumValue> (*this); }

protected:
    bool      PayloadIsValid () const override;
    bool      PayloadEquals (const DynamicValue& other) const override;
    UniString PayloadToText (const DynamicValueConversionRules& rules) const override;

private:
    double value;
};

class StringValue : public DynamicValue {
public:
    explicit StringValue (const UniString& value = UniString (), Status status = Normal) : DynamicValue (status), value (value) {}
    const UniString& GetValue () const { return value; }
    void             SetValue (const UniString& newValue) { value = newValue; }
    Owner<DynamicValue> Clone () const override { return NewOwner<StringValue> (*this); }

protected:
    bool      PayloadEquals (const DynamicValue& other) const override;
    UniString PayloadToText (const DynamicValueConversionRules& rules) const override;

private:
    UniString value;
};

// A list of guids, e.g. the keys of the chosen entries of a multiple-choice enumeration.
class GuidListValue : public DynamicValue {
public:
    explicit GuidListValue (const Array<Guid>& value = {}, Status status = Normal) : DynamicValue (status), value (value) {}
    const Array<Guid>& GetValue () const { return value; }
    void               SetValue (const Array<Guid>& newValue) { value = newValue; }
    Owner<DynamicValue> Clone () const override { return NewOwner<GuidListValue> (*this); }

protected:
    bool      PayloadEquals (const DynamicValue& other) const override;
    UniString PayloadToText (const DynamicValueConversionRules& rules) const override;

private:
    Array<Guid> value;
};

class StringListValue : public DynamicValue {
public:
    explicit StringListValue (const Array<UniString>& value = {}, Status status = Normal) : DynamicValue (status), value (value) {}
    const Array<UniString>& GetValue () const { return value; }
    void                    SetValue (const Array<UniString>& newValue) { value = newValue; }
    Owner<DynamicValue> Clone () const override { return NewOwner<StringListValue> (*this); }

    // Text conversion as a user edits the list: one entry per line (LF, CR LF or CR); blanks
    // around an entry are dropped and empty lines skipped. The value becomes normal.
    void      SetFromText (const UniString& text);
    // The entries, one per line (LF), as SetFromText reads them back.
    UniString ToText () const;

protected:
    bool      PayloadEquals (const DynamicValue& other) const override;
    UniString PayloadToText (const DynamicValueConversionRules& rules) const override;

private:
    Array<UniString> value;
};

}   // namespace Kor
