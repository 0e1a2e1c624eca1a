// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>

namespace morva {

/// Why one photo was not exported. Shown to the user and written into the export report; the export
/// of a job goes on past it.
struct ExportError {
    enum class Kind {
        cannotLoad,
        cannotRender,
        cannotWrite,
        destinationIsSource,
        invalidCrop,
        /// The system would not make or mark the destination's folder.
        fileSystem,
        /// The user wanted no more of it.
        cancelled,
    };
    Kind kind = Kind::invalidCrop;
    /// The source for `cannotLoad` and `cannotRender`, the destination for `cannotWrite`.
    std::filesystem::path file = {};
    /// The system's own sentence, for `fileSystem`.
    std::string reason = {};

    /// One sentence for a person.
    std::string message() const;

    bool operator==(const ExportError&) const = default;
};

}  // namespace morva
