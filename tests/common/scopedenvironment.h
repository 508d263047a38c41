// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>

#include <optional>

/** Sets an environment variable (nullopt: removes it) for its lifetime, then puts back what was there. */
class ScopedEnvironment
{
public:
    ScopedEnvironment(const char *name, const std::optional<QByteArray> &value)
        : m_name(name)
        , m_old(qEnvironmentVariableIsSet(name) ? std::optional(qgetenv(name)) : std::nullopt)
    {
        set(value);
    }
    ~ScopedEnvironment() { set(m_old); }
    ScopedEnvironment(const ScopedEnvironment &) = delete;
    ScopedEnvironment &operator=(const ScopedEnvironment &) = delete;

private:
    void set(const std::optional<QByteArray> &value) const
    {
        value ? qputenv(m_name, *value) : qunsetenv(m_name);
    }

    const char *m_name;
    std::optional<QByteArray> m_old;
};
