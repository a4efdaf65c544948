// SPDX-License-Identifier: MIT
// How failing tests show Qt's values. Seen by every test, so that all of a program's files agree.
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QUrl>

#include <ostream>

inline void PrintTo(const QString& value, std::ostream* stream) { *stream << '"' << value.toStdString() << '"'; }

inline void PrintTo(const QByteArray& value, std::ostream* stream) { *stream << '"' << value.toStdString() << '"'; }

inline void PrintTo(const QUrl& value, std::ostream* stream) { *stream << value.toString().toStdString(); }

inline void PrintTo(const QDateTime& value, std::ostream* stream) { *stream << value.toString(Qt::ISODateWithMs).toStdString(); }
