// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/csv_text.h"

#include <array>
#include <charconv>

#include <QByteArray>
#include <QString>

namespace morva::Csv {

namespace {

template <class Written>
std::string joined(std::span<const std::string> fields, const Written& written) {
    std::string line;
    for (const std::string& field : fields) {
        if (&field != fields.data()) line += ',';
        line += written(field);
    }
    return line;
}

}  // namespace

std::string cell(std::string_view text) {
    std::string valid =
        QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())).toStdString();
    if (valid.find_first_of("=+-@\t\r\n") == 0) valid.insert(0, 1, '\'');
    return valid;
}

std::string quoted(std::string_view field) {
    std::string text = "\"";
    for (const char sign : field) {
        if (sign == '"') text += '"';
        text += sign;
    }
    return text + '"';
}

std::string line(std::span<const std::string> fields) {
    return joined(fields, [](const std::string& field) {
        return field.find_first_of(",\"\r\n") == std::string::npos ? field : Csv::quoted(field);
    });
}

std::string quotedLine(std::span<const std::string> fields) { return joined(fields, quoted); }

std::string number(double value, int decimals) {
    std::array<char, 64> text{};
    const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), value,
                                            std::chars_format::fixed, decimals);
    return error == std::errc() ? std::string(text.data(), end) : std::string();
}

}  // namespace morva::Csv
