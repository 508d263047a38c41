#pragma once

#include <QList>

#include <algorithm>

/** The middle of \a values; of an even count, the upper of the two middle ones. */
inline double median(QList<double> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}
