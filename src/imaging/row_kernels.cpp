// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/row_kernels.h"

#include <algorithm>
#include <array>
#include <cstring>

#include <opencv2/core/hal/intrin.hpp>

namespace morva {

namespace {

/// Adds the weighted pixels of up to four rows at once, so that the sums are loaded and stored
/// once for all of them.
template <std::size_t rowCount>
void sumRows(const std::uint8_t* const* rows, const std::int16_t* weights, std::int16_t* sums,
             std::size_t count, bool start) {
    std::size_t i = 0;
    for (; i + 16 <= count; i += 16) {
        cv::v_int16x8 low = start ? cv::v_setzero_s16() : cv::v_load(sums + i);
        cv::v_int16x8 high = start ? cv::v_setzero_s16() : cv::v_load(sums + i + 8);
        for (std::size_t r = 0; r < rowCount; ++r) {
            cv::v_uint16x8 pixelsLow, pixelsHigh;
            cv::v_expand(cv::v_load(rows[r] + i), pixelsLow, pixelsHigh);
            const cv::v_int16x8 weight = cv::v_setall_s16(weights[r]);
            low = cv::v_add_wrap(low, cv::v_mul_wrap(cv::v_reinterpret_as_s16(pixelsLow), weight));
            high =
                cv::v_add_wrap(high, cv::v_mul_wrap(cv::v_reinterpret_as_s16(pixelsHigh), weight));
        }
        cv::v_store(sums + i, low);
        cv::v_store(sums + i + 8, high);
    }
    for (; i < count; ++i) {
        int sum = start ? 0 : sums[i];
        for (std::size_t r = 0; r < rowCount; ++r) sum += rows[r][i] * weights[r];
        sums[i] = static_cast<std::int16_t>(sum);
    }
}

/// Rounds, narrows and writes interleaved pixels; the last ones through a buffer, since pixels
/// have no padding behind them.
void storePixels(const cv::v_uint8x16& red, const cv::v_uint8x16& green, const cv::v_uint8x16& blue,
                 std::uint8_t* out, std::size_t pixels) {
    if (pixels >= 16) return cv::v_store_interleave(out, red, green, blue);
    std::array<std::uint8_t, 48> last;
    cv::v_store_interleave(last.data(), red, green, blue);
    std::memcpy(out, last.data(), pixels * 3);
}

/// Colour difference times a factor, in 1/32 levels. The factor is given times 2^14.
cv::v_int16x8 times(const cv::v_int16x8& difference, int factor) {
    return cv::v_mul_hi(cv::v_shl<7>(difference), cv::v_setall_s16(static_cast<short>(factor)));
}

struct Rgb16 {
    cv::v_int16x8 red, green, blue;
};

/// Eight pixels, with the rounding that remains to be shifted away added.
Rgb16 rgbOf(const cv::v_uint16x8& luma, const cv::v_uint16x8& blueness,
            const cv::v_uint16x8& redness) {
    const cv::v_int16x8 middle = cv::v_setall_s16(128);
    const cv::v_int16x8 y =
        cv::v_add_wrap(cv::v_shl<5>(cv::v_reinterpret_as_s16(luma)), cv::v_setall_s16(16));
    const cv::v_int16x8 b = cv::v_sub_wrap(cv::v_reinterpret_as_s16(blueness), middle);
    const cv::v_int16x8 r = cv::v_sub_wrap(cv::v_reinterpret_as_s16(redness), middle);
    return {cv::v_add_wrap(y, times(r, 22970)),
            cv::v_sub_wrap(cv::v_sub_wrap(y, times(b, 5638)), times(r, 11700)),
            cv::v_add_wrap(y, times(b, 29032))};
}

cv::v_uint8x16 narrowed(const cv::v_int16x8& low, const cv::v_int16x8& high) {
    return cv::v_pack_u(cv::v_shr<5>(low), cv::v_shr<5>(high));
}

}  // namespace

void sumDown(std::span<const std::uint8_t* const> rows, std::span<const std::int16_t> weights,
             std::int16_t* sums, std::size_t count) {
    for (std::size_t at = 0; at < rows.size(); at += 4) {
        const auto call = [&](auto sum) { sum(&rows[at], &weights[at], sums, count, at == 0); };
        switch (std::min<std::size_t>(4, rows.size() - at)) {
            case 1:
                call(sumRows<1>);
                break;
            case 2:
                call(sumRows<2>);
                break;
            case 3:
                call(sumRows<3>);
                break;
            default:
                call(sumRows<4>);
        }
    }
}

void sumAcross(const std::int16_t* sums, const ReduceTaps& across, std::uint8_t* out) {
    constexpr int shift = 7 + 14;
    const cv::v_int32x4 half = cv::v_setall_s32(1 << (shift - 1));
    const std::size_t taps = across.taps;
    for (std::size_t i = 0; i < across.first.size(); i += 4) {
        const int* first = &across.first[i];
        const std::int16_t* weights = &across.weights[i * taps];
        cv::v_int32x4 pairOne = cv::v_setzero_s32();
        cv::v_int32x4 pairTwo = cv::v_setzero_s32();
        for (std::size_t t = 0; t < taps; t += 4) {
            const auto halves = [&](std::size_t a, std::size_t b) {
                return cv::v_dotprod(
                    cv::v_load_halves(sums + first[a] + t, sums + first[b] + t),
                    cv::v_load_halves(weights + a * taps + t, weights + b * taps + t));
            };
            pairOne = pairOne + halves(0, 1);
            pairTwo = pairTwo + halves(2, 3);
        }
        // Each output is still two partial sums: a a b b and c c d d.
        cv::v_int32x4 low, high, even, odd;
        cv::v_zip(pairOne, pairTwo, low, high);
        cv::v_zip(low, high, even, odd);
        const cv::v_int32x4 levels = cv::v_shr<shift>(even + odd + half);
        const cv::v_int16x8 words = cv::v_pack(levels, levels);
        const unsigned four = cv::v_reinterpret_as_u32(cv::v_pack_u(words, words)).get0();
        std::memcpy(out + i, &four, 4);
    }
}

void halve(const std::uint8_t* upper, const std::uint8_t* lower, std::uint8_t* out,
           std::size_t pixels) {
    const cv::v_uint16x8 lowByte = cv::v_setall_u16(0xff);
    for (std::size_t i = 0; i < pixels; i += 8) {
        const cv::v_uint16x8 a = cv::v_reinterpret_as_u16(cv::v_load(upper + i * 2));
        const cv::v_uint16x8 b = cv::v_reinterpret_as_u16(cv::v_load(lower + i * 2));
        const cv::v_uint16x8 sum = cv::v_add_wrap(cv::v_add_wrap(a & lowByte, cv::v_shr<8>(a)),
                                                  cv::v_add_wrap(b & lowByte, cv::v_shr<8>(b)));
        const cv::v_uint8x16 means = cv::v_rshr_pack<2>(sum, sum);
        if (pixels - i >= 8) {
            cv::v_store_low(out + i, means);
        } else {
            std::array<std::uint8_t, 16> last;
            cv::v_store(last.data(), means);
            std::memcpy(out + i, last.data(), pixels - i);
        }
    }
}

void lumaChromaToRgb(const std::uint8_t* luma, const std::uint8_t* blueness,
                     const std::uint8_t* redness, std::uint8_t* out, std::size_t pixels) {
    for (std::size_t i = 0; i < pixels; i += 16) {
        cv::v_uint16x8 y0, y1, b0, b1, r0, r1;
        cv::v_expand(cv::v_load(luma + i), y0, y1);
        cv::v_expand(cv::v_load(blueness + i), b0, b1);
        cv::v_expand(cv::v_load(redness + i), r0, r1);
        const Rgb16 low = rgbOf(y0, b0, r0);
        const Rgb16 high = rgbOf(y1, b1, r1);
        storePixels(narrowed(low.red, high.red), narrowed(low.green, high.green),
                    narrowed(low.blue, high.blue), out + i * 3, pixels - i);
    }
}

void interleave(const std::uint8_t* red, const std::uint8_t* green, const std::uint8_t* blue,
                std::uint8_t* out, std::size_t pixels) {
    for (std::size_t i = 0; i < pixels; i += 16)
        storePixels(cv::v_load(red + i), cv::v_load(green + i), cv::v_load(blue + i), out + i * 3,
                    pixels - i);
}

}  // namespace morva
