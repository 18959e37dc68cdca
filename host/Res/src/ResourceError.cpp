#include "Res/ResourceError.hpp"

namespace Res {

ResourceError::ResourceError (const std::string& file, int line, const std::string& reason) :
    std::runtime_error (file + ":" + std::to_string (line) + ": " + reason),
    file (file),
    line (line),
    reason (reason)
{
}

}   // namespace Res
