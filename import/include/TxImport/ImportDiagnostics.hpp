#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace TxImport {

// One thing an importer could not map: where it is (the file and the element or class in it) and
// why. The importer skips it and goes on with the rest of the file.
struct ImportProblem {
	std::string file;
	std::string place;
	std::string message;

	// "<file>: <place>: <message>", the form a user reads in a log.
	std::string ToString () const;
};

// The problems of one import run, in the order they were found.
class ImportDiagnostics {
public:
	void Report (std::string file, std::string place, std::string message);

	bool                              IsClean () const;
	std::size_t                       GetCount () const;
	const std::vector<ImportProblem>& GetProblems () const;

	// Every problem on its own line.
	std::string ToString () const;

private:
	std::vector<ImportProblem> problems;
};

}	// namespace TxImport
