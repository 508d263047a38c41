// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <cstddef>
#include <iterator>

/** The index of enumerator \a value in a table keyed by its enum: enumerators count from 0. */
template <typename E>
constexpr std::size_t enumIndex(E value)
{
    return static_cast<std::size_t>(value);
}

/** Every enumerator of \a E from the first up to \a N, in order: for looping over a table's keys. */
template <typename E, std::size_t N>
constexpr std::array<E, N> enumValues()
{
    std::array<E, N> values{};
    for (std::size_t i = 0; i < N; ++i)
        values[i] = static_cast<E>(i);
    return values;
}

/** A table with one row per enumerator of \a E, read by the enumerator, never by a bare position. */
template <typename E, typename T, std::size_t N>
struct EnumArray {
    T rows[N]; // a plain array, so that a table's rows are written in single braces

    constexpr T &operator[](E key) { return rows[enumIndex(key)]; }
    constexpr const T &operator[](E key) const { return rows[enumIndex(key)]; }
    static constexpr std::size_t size() { return N; }
    constexpr T *begin() { return std::begin(rows); }
    constexpr T *end() { return std::end(rows); }
    constexpr const T *begin() const { return std::begin(rows); }
    constexpr const T *end() const { return std::end(rows); }
};
