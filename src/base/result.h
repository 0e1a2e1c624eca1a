// SPDX-License-Identifier: GPL-3.0-or-later
// Errors as values: an operation that can fail returns Result<T>; exceptions stop at the adapter
// that met them.
#pragma once

#include <string>

#include <tl/expected.hpp>

namespace morva {

/// Why something failed, as one sentence for a person; it names the file where there is one.
struct Failure {
    std::string message;

    bool operator==(const Failure&) const = default;
};

template <class T>
using Result = tl::expected<T, Failure>;

inline tl::unexpected<Failure> failure(std::string message) {
    return tl::unexpected<Failure>(Failure{std::move(message)});
}

}  // namespace morva
