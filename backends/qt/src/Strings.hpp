#pragma once
// Conversions between the model's UTF-16 strings and Qt's; both are UTF-16, so nothing is lost.

#include <QString>

#include "Kor/UniString.hpp"

namespace TxalQt {

inline QString ToQString (const Kor::UniString& text)
{
    const std::u16string& units = text.GetUtf16 ();
    return QString::fromUtf16 (units.data (), static_cast<qsizetype> (units.size ()));
}

inline Kor::UniString ToUniString (const QString& text)
{
    return Kor::UniString (text.toStdU16String ());
}

}   // namespace TxalQt
