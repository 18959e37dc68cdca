#include "TxImport/ClassificationImport.hpp"

#include <fstream>
#include <sstream>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include <nlohmann/json.hpp>

namespace TxImport {

namespace {

using Json = nlohmann::json;

constexpr std::string_view Utf8ByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view Blanks = " \t\r\n";

// Drops blanks and byte-order marks at both ends: real files carry them, even after the closing brace.
std::string_view Trim (std::string_view text)
{
	for (bool changed = true; changed;) {
		changed = false;
		const std::size_t first = text.find_first_not_of (Blanks);
		text.remove_prefix (first == std::string_view::npos ? text.size () : first);
		const std::size_t last = text.find_last_not_of (Blanks);
		text = text.substr (0, last == std::string_view::npos ? 0 : last + 1);
		if (text.substr (0, Utf8ByteOrderMark.size ()) == Utf8ByteOrderMark) {
			text.remove_prefix (Utf8ByteOrderMark.size ());
			changed = true;
		}
		if (text.size () >= Utf8ByteOrderMark.size () && text.substr (text.size () - Utf8ByteOrderMark.size ()) == Utf8ByteOrderMark) {
			text.remove_suffix (Utf8ByteOrderMark.size ());
			changed = true;
		}
	}
	return text;
}

// A text field; empty when it is missing or null, nothing when it holds something else.
bool ReadText (const Json& object, const char* key, std::string& result)
{
	result.clear ();
	const auto it = object.find (key);
	if (it == object.end () || it->is_null ())
		return true;
	if (!it->is_string ())
		return false;
	result = it->get<std::string> ();
	return true;
}

struct ClassRecord {
	std::string code;
	std::string name;
	std::string definition;
	std::string parentCode;
};

std::string ClassPlace (const std::string& code)
{
	return "class '" + code + "'";
}

// Why a class that was not reached from a root could not be placed.
std::string WhyUnplaced (const ClassRecord& record, const std::unordered_map<std::string, std::size_t>& byCode,
						 const std::vector<ClassRecord>& records)
{
	if (byCode.find (record.parentCode) == byCode.end ())
		return "its parent class '" + record.parentCode + "' does not exist";
	// Walk up: back at the class means a cycle through it; else an ancestor is the problem.
	std::unordered_set<std::string> seen {record.code};
	for (const ClassRecord* current = &record; !current->parentCode.empty ();) {
		const auto parent = byCode.find (current->parentCode);
		if (parent == byCode.end ())
			break;
		current = &records[parent->second];
		if (current->code == record.code)
			return "its parent classes form a cycle";
		if (!seen.insert (current->code).second)
			break;
	}
	return "its parent class '" + record.parentCode + "' could not be imported";
}

}	// namespace

ODB::Ref<CLS::ClassificationSystem> ReadClassificationSystemJson (std::string_view document, const std::string& fileName,
																  ImportDiagnostics& diagnostics)
{
	Json root;
	try {
		root = Json::parse (Trim (document));
	} catch (const Json::parse_error& error) {
		diagnostics.Report (fileName, "byte " + std::to_string (error.byte), "malformed JSON (" + std::string (error.what ()) + ")");
		return {};
	}
	const auto classes = root.is_object () ? root.find ("Classes") : root.end ();
	if (!root.is_object () || classes == root.end () || !classes->is_array ()) {
		diagnostics.Report (fileName, "document", "no \"Classes\" array: not a classification import file");
		return {};
	}

	std::string name, code, version;
	if (!ReadText (root, "DictionaryName", name) || !ReadText (root, "DictionaryCode", code) || !ReadText (root, "DictionaryVersion", version))
		diagnostics.Report (fileName, "document", "the dictionary's name, code or version is not a text");
	auto system = CLS::ClassificationSystem::Create (name.empty () ? code : name, version);

	// The classes that can be mapped by themselves, in file order.
	std::vector<ClassRecord>                records;
	std::unordered_map<std::string, std::size_t> byCode;
	std::size_t                             number = 0;
	for (const Json& entry : *classes) {
		++number;
		const std::string place = "class #" + std::to_string (number);
		if (!entry.is_object ()) {
			diagnostics.Report (fileName, place, "not an object");
			continue;
		}
		ClassRecord record;
		if (!ReadText (entry, "Code", record.code) || record.code.empty ()) {
			diagnostics.Report (fileName, place, "no code");
			continue;
		}
		if (!ReadText (entry, "Name", record.name) || !ReadText (entry, "Definition", record.definition) ||
			!ReadText (entry, "ParentClassCode", record.parentCode)) {
			diagnostics.Report (fileName, ClassPlace (record.code), "its name, definition or parent code is not a text");
			continue;
		}
		if (!byCode.emplace (record.code, records.size ()).second) {
			diagnostics.Report (fileName, ClassPlace (record.code), "duplicate code; the first class with it is kept");
			continue;
		}
		records.push_back (std::move (record));
	}

	// Children in file order, then a walk from the roots: what the walk does not reach has a
	// missing parent or sits in a cycle.
	std::unordered_map<std::string, std::vector<std::size_t>> children;
	std::vector<std::size_t>                                  roots;
	for (std::size_t i = 0; i < records.size (); ++i) {
		if (records[i].parentCode.empty ())
			roots.push_back (i);
		else
			children[records[i].parentCode].push_back (i);
	}

	std::vector<bool> placed (records.size (), false);
	struct Pending {
		std::size_t                       record;
		ODB::ConstRef<CLS::ClassificationItem> parent;
	};
	std::vector<Pending> stack;
	for (auto it = roots.rbegin (); it != roots.rend (); ++it)
		stack.push_back ({*it, {}});
	while (!stack.empty ()) {
		Pending next = std::move (stack.back ());
		stack.pop_back ();
		const ClassRecord& record = records[next.record];
		placed[next.record] = true;
		const auto item = system->AddItem (next.parent, record.code, record.name, record.definition);
		const auto below = children.find (record.code);
		if (below == children.end ())
			continue;
		for (auto it = below->second.rbegin (); it != below->second.rend (); ++it)
			stack.push_back ({*it, item});
	}

	for (std::size_t i = 0; i < records.size (); ++i)
		if (!placed[i])
			diagnostics.Report (fileName, ClassPlace (records[i].code), WhyUnplaced (records[i], byCode, records));
	return system;
}

ODB::Ref<CLS::ClassificationSystem> ReadClassificationSystemFile (const std::string& path, ImportDiagnostics& diagnostics)
{
	std::ifstream file (path, std::ios::binary);
	if (!file) {
		diagnostics.Report (path, "file", "cannot be opened");
		return {};
	}
	std::ostringstream content;
	content << file.rdbuf ();
	if (file.bad ()) {
		diagnostics.Report (path, "file", "cannot be read");
		return {};
	}
	return ReadClassificationSystemJson (content.str (), path, diagnostics);
}

}	// namespace TxImport
