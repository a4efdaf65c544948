// SPDX-License-Identifier: MIT
#include "foundation/ArrayBMExtensions.h"

#include <QSet>

QStringList arrayByRemovingObjectsFromArray(const QStringList& array, const QStringList& otherArray)
{
    const QSet<QString> removed(otherArray.begin(), otherArray.end());
    QStringList rest;
    for (const QString& element : array) {
        if (!removed.contains(element))
            rest += element;
    }
    return rest;
}

QStringList arrayOfUniqueStrings(const QStringList& array)
{
    QStringList unique = array;
    unique.removeDuplicates();
    return unique;
}
