// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QStringList>

#include <memory>

// A copy of the array without any element that equals one of the other array's; the order of the rest is kept.
template <class Element>
[[nodiscard]] QList<Element> arrayByRemovingObjectsFromArray(const QList<Element>& array,
                                                             const QList<Element>& otherArray)
{
    QList<Element> rest;
    for (const Element& element : array) {
        if (!otherArray.contains(element))
            rest += element;
    }
    return rest;
}

// The same in time that does not grow with the product of the lengths.
[[nodiscard]] QStringList arrayByRemovingObjectsFromArray(const QStringList& array, const QStringList& otherArray);

// The elements that are instances of Class or of a class derived from it, in order.
template <class Class, class Base>
[[nodiscard]] QList<std::shared_ptr<Class>> objectsOfKindOfClass(const QList<std::shared_ptr<Base>>& array)
{
    QList<std::shared_ptr<Class>> objects;
    for (const std::shared_ptr<Base>& element : array) {
        if (auto object = std::dynamic_pointer_cast<Class>(element))
            objects += std::move(object);
    }
    return objects;
}

// The texts in order, each at its first place only. Texts are equal when their UTF-16 code units are.
[[nodiscard]] QStringList arrayOfUniqueStrings(const QStringList& array);
