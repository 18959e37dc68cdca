#pragma once
// Res::ResourceError: a module image file that cannot be read. what () is "<file>:<line>: <reason>"
// so that the message points at the place to fix.

#include <stdexcept>
#include <string>

namespace Res {

class ResourceError : public std::runtime_error {
public:
    ResourceError (const std::string& file, int line, const std::string& reason);

    const std::string& GetFile () const { return file; }
    int                GetLine () const { return line; }
    const std::string& GetReason () const { return reason; }

private:
    std::string file;
    int         line;
    std::string reason;
};

}   // namespace Res
