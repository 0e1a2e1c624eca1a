// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

namespace morva {

/// Whether all chunks of a PNG, up to its end chunk, lie within the file; also true of a file that
/// is no PNG. The libraries for pixels and for metadata make room for what a chunk says it holds
/// before they look, and four bytes can say two gigabytes.
bool pngChunksFit(const std::filesystem::path& file);

}  // namespace morva
