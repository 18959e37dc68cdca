#include "TxImport/ImportDiagnostics.hpp"

#include <utility>

namespace TxImport {

std::string ImportProblem::ToString () const
{
	std::string text = file;
	if (!place.empty ())
		text += ": " + place;
	return text + ": " + message;
}


void ImportDiagnostics::Report (std::string file, std::string place, std::string message)
{
	problems.push_back ({std::move (file), std::move (place), std::move (message)});
}


bool ImportDiagnostics::IsClean () const
{
	return problems.empty ();
}


std::size_t ImportDiagnostics::GetCount () const
{
	return problems.size ();
}


const std::vector<ImportProblem>& ImportDiagnostics::GetProblems () const
{
	return problems;
}


std::string ImportDiagnostics::ToString () const
{
	std::string text;
	for (const ImportProblem& problem : problems)
		text += problem.ToString () + "\n";
	return text;
}

}	// namespace TxImport
