#include "page_control/view/dirty_tiles.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace tarvik {

namespace {

bool Differ(const std::uint32_t* left, const std::uint32_t* right, int pixels) {
    return std::memcmp(left, right, pixels * sizeof *left) != 0;
}

}  // namespace

void DirtyTiles::AddDifference(const Pixels& before, const Pixels& after) {
    tile_ = {(after.width + kSide - 1) / kSide, (after.height + kSide - 1) / kSide};
    if (before.width != after.width || before.height != after.height) return rows_.fill(~std::uint64_t{0});
    for (int y = 0; y < after.height; ++y) {
        const size_t start = static_cast<size_t>(y) * after.width;
        const auto *old = before.colors.data() + start, *now = after.colors.data() + start;
        if (!Differ(old, now, after.width)) continue;
        std::uint64_t& row = rows_[y / tile_.cy];
        std::uint64_t bit = 1;
        for (int x = 0; x < after.width; x += tile_.cx, bit <<= 1) {
            if (!(row & bit) && Differ(old + x, now + x, std::min<int>(tile_.cx, after.width - x)))
                row |= bit;
        }
    }
}

void DirtyTiles::Add(const DirtyTiles& other) {
    if (other.tile_.cx) tile_ = other.tile_;
    for (int y = 0; y < kSide; ++y)
        rows_[y] |= other.rows_[y];
}

double DirtyTiles::Share() const {
    int count = 0;
    for (const std::uint64_t row : rows_)
        count += std::popcount(row);
    return static_cast<double>(count) / (kSide * kSide);
}

RECT DirtyTiles::Bounds() const {
    std::uint64_t columns = 0;
    int top = kSide, bottom = 0;
    for (int y = 0; y < kSide; ++y) {
        if (!rows_[y]) continue;
        columns |= rows_[y];
        top = std::min(top, y);
        bottom = y + 1;
    }
    if (!columns) return {};
    return {std::countr_zero(columns) * tile_.cx, top * tile_.cy,
            (kSide - std::countl_zero(columns)) * tile_.cx, bottom * tile_.cy};
}

}  // namespace tarvik
