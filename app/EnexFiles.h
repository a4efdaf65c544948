// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QStringList>
#include <QUrl>

// The ENEX files among what a person dropped or named: files by their extension, and those in
// folders, by name within each folder. Links to folders are not followed, and each file is given
// once.
[[nodiscard]] QList<QUrl> enexFilesAmong(const QList<QUrl>& urls);

// A quick look, without reading any folder: one of them is an ENEX file or a folder.
[[nodiscard]] bool mayHoldEnexFiles(const QList<QUrl>& urls);

// The arguments of a command line as URLs; paths are relative to the current folder.
[[nodiscard]] QList<QUrl> urlsOfArguments(const QStringList& arguments);
