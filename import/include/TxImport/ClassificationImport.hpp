#pragma once
// Reads bSDD classification import files (JSON) into classification systems.
//
// The system takes its name from DictionaryName (else DictionaryCode) and its edition from
// DictionaryVersion. Every entry of "Classes" becomes an item with its Code, Name and Definition,
// placed under the class that ParentClassCode names (parents may come after their children in
// the file); siblings keep the order of the file. What cannot be mapped is reported with the
// file and the class code and left out, together with the classes below it: a class without a
// usable code, a duplicate code (the first class keeps it), a parent that does not exist, and
// parents that form a cycle. Byte-order marks and blanks around the document are ignored.
// Malformed JSON, or a document without a "Classes" array, gives an empty reference and one
// report.

#include <string>
#include <string_view>

#include "CLS/ClassificationSystem.hpp"
#include "ODB/Ref.hpp"
#include "TxImport/ImportDiagnostics.hpp"

namespace TxImport {

// The system in the file at path; empty when the file cannot be read or is no import file.
ODB::Ref<CLS::ClassificationSystem> ReadClassificationSystemFile (const std::string& path, ImportDiagnostics& diagnostics);

// The same for a document in memory; fileName only names it in reports.
ODB::Ref<CLS::ClassificationSystem> ReadClassificationSystemJson (std::string_view document, const std::string& fileName,
																  ImportDiagnostics& diagnostics);

}   // namespace TxImport
