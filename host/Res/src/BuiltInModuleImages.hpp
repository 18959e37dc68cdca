#pragma once
// The module images built into the library: every file of each module folder under the
// project's resources/, embedded at build time by cmake/EmbedResources.cmake.

#include <cstddef>
#include <span>

namespace Res::Detail {

struct EmbeddedFile {
    const char* path;       // relative to the module folder, '/' separated
    const char* data;       // not terminated: may hold any bytes
    std::size_t size;
};

struct EmbeddedModule {
    const char*         name;
    const EmbeddedFile* files;
    std::size_t         fileCount;
};

std::span<const EmbeddedModule> GetBuiltInModuleImages ();

}   // namespace Res::Detail
