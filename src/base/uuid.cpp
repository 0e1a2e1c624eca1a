// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/uuid.h"

#include <algorithm>
#include <cassert>
#include <cctype>

#include <QUuid>

namespace morva {

namespace {

constexpr std::size_t uuidLength = 36;

bool isDash(std::size_t index) { return index == 8 || index == 13 || index == 18 || index == 23; }

}  // namespace

std::optional<Uuid> Uuid::parse(std::string_view text) {
    if (text.size() != uuidLength) return std::nullopt;
    Uuid id;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto c = static_cast<unsigned char>(text[i]);
        if (isDash(i) ? c != '-' : !std::isalnum(c)) return std::nullopt;
        id.text_ += static_cast<char>(std::toupper(c));
    }
    return id;
}

Uuid Uuid::fixed(std::string_view text) {
    const std::optional<Uuid> id = parse(text);
    assert(id);
    return *id;
}

Uuid Uuid::random() {
    return fixed(QUuid::createUuid().toString(QUuid::WithoutBraces).toStdString());
}

}  // namespace morva
