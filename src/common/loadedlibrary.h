// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/result.h"

#include <QLibrary>
#include <QStringList>

/**
 * A library loaded the first time it is wanted, its functions resolved by name into a table.
 * The libraries loaded so bring dozens more with them (codecs, compressors), each costing the
 * window's start page faults and relocations for something most sessions never use.
 */
class LibraryLoader
{
public:
    /** Loads \a soname, the name the build compiled against; kept loaded for the whole run. */
    explicit LibraryLoader(const char *soname);

    template <typename Function>
    void resolve(Function &slot, const char *name)
    {
        slot = reinterpret_cast<Function>(m_library.isLoaded() ? m_library.resolve(name) : nullptr);
        if (!slot)
            m_missing.append(QString::fromLatin1(name));
    }

    /** \a table when every function was found; otherwise why not. */
    template <typename Table>
    Result<Table> result(const Table &table) const
    {
        if (const QString problem = failure(); !problem.isEmpty())
            return Result<Table>::fail(problem);
        return table;
    }

private:
    QString failure() const;

    QLibrary m_library;
    QString m_loadError;
    QStringList m_missing;
};

/** A table's member for the function \a name, typed as the header declares it. */
#define STAKKO_LIBRARY_POINTER(name) decltype(&::name) name = nullptr;

/** The body of a function giving \a Table, loaded from \a soname once; \a FUNCTIONS lists it. */
#define STAKKO_LOAD_LIBRARY_ONCE(Table, soname, FUNCTIONS) \
    static const Result<Table> loaded = [] {               \
        LibraryLoader loader(soname);                      \
        Table table;                                       \
        FUNCTIONS(STAKKO_LIBRARY_RESOLVE)                  \
        return loader.result(table);                       \
    }();                                                   \
    return loaded
#define STAKKO_LIBRARY_RESOLVE(name) loader.resolve(table.name, #name);
