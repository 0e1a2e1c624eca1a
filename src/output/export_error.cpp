// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/export_error.h"

namespace morva {

std::string ExportError::message() const {
    const std::string name = file.filename().string();
    switch (kind) {
        case Kind::cannotLoad:
            return "Could not read " + name + ".";
        case Kind::cannotRender:
            return "Could not render the crop for " + name + ".";
        case Kind::cannotWrite:
            return "Could not write " + name + ".";
        case Kind::destinationIsSource:
            return "The export folder must be different from the source folder. Originals are "
                   "never overwritten.";
        case Kind::invalidCrop:
            return "The crop rectangle is empty.";
        case Kind::cancelled:
            return "The export was cancelled.";
        case Kind::fileSystem:
            return reason;
    }
    return reason;
}

}  // namespace morva
