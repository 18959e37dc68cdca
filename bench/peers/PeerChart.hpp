#pragma once
// The chart of the peer runs: one panel per workload, bars per size and peer on a log scale,
// recorded as a drawing and painted by the Qt backend into a PNG.

#include <string>

#include "Gfx/DrawingContext.hpp"
#include "PeerResults.hpp"

namespace Peers {

Gfx::DrawingContext DrawChart (const Results& results);
// False when the file cannot be written.
bool SaveChart (const Results& results, const std::string& fileName);

}   // namespace Peers
