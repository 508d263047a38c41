// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/report.h"

#include <optional>
#include <utility>

/**
 * What a fallible call gives back: its value, or the report of why there is none. A call that
 * succeeds may still have something to tell (warnings, information); it rides along in report().
 * The one way every layer fails: no error out-parameters, no report to fetch afterwards.
 */
template <typename T>
class [[nodiscard]] Result
{
public:
    Result(T value, Report told = {}) : m_value(std::move(value)), m_report(std::move(told)) {}
    /** A failure: \a failure holds at least one error. */
    Result(Report failure) : m_report(std::move(failure)) {}

    static Result fail(const QString &text, const QString &field = {}, const QString &file = {})
    {
        Report failure;
        failure.error(text, field, file);
        return Result(std::move(failure));
    }

    bool ok() const { return m_value.has_value(); }
    explicit operator bool() const { return ok(); }

    const T &value() const { return *m_value; }
    T &value() { return *m_value; }
    const T &operator*() const { return *m_value; }
    T &operator*() { return *m_value; }
    const T *operator->() const { return &*m_value; }
    T *operator->() { return &*m_value; }
    T valueOr(T fallback) const { return m_value ? *m_value : std::move(fallback); }

    const Report &report() const { return m_report; }
    Report takeReport() { return std::move(m_report); }
    /** The first error's text, for a one-line message; "" on success. */
    QString errorText() const { return firstErrorText(m_report); }

private:
    std::optional<T> m_value;
    Report m_report;
};

/** A call with nothing to give back: it succeeded unless its report holds an error. */
template <>
class [[nodiscard]] Result<void>
{
public:
    Result() = default;
    Result(Report told) : m_report(std::move(told)) {}

    static Result fail(const QString &text, const QString &field = {}, const QString &file = {})
    {
        Report failure;
        failure.error(text, field, file);
        return Result(std::move(failure));
    }

    bool ok() const { return !m_report.hasErrors(); }
    explicit operator bool() const { return ok(); }

    const Report &report() const { return m_report; }
    Report takeReport() { return std::move(m_report); }
    QString errorText() const { return firstErrorText(m_report); }

private:
    Report m_report;
};
