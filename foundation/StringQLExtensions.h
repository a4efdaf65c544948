// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

// Operations on texts that the notes application shares. Lengths are in UTF-16 code units; none of these fails.

// A file name from the beginning of a text, without attachment characters (U+FFFC): what stands before
// the first line end or control character, when there is one among the first 128; else the words up to
// the first period, at most as far as the one that reaches or crosses 128. Made a file name and put into
// the file system's form. None when nothing is left of the text.
[[nodiscard]] std::optional<QString> generateFilename(const QString& text);

// The name's extension is one of the notes application's encrypted items'. Case counts.
[[nodiscard]] bool isEncryptedFile(const QString& name);

// The tags in a Finder comment. Between ###begin_tags### and ###end_tags### they are separated by semicolons
// and may stand between @ signs; without the second marker there are none. A comment without markers holds
// its tags as words, separated by single blanks, in which "_" and "." stand for blanks: every word is one, or,
// with the setting "QLPrefixExportedTags", those that begin with "@", "&" or a character of the setting
// "QLImportedTagsPrefix".
[[nodiscard]] std::optional<QStringList> tagNamesFromSpotlightComments(const QString& comment);

// The comment without its tags. None without the setting "QLPrefixExportedTags", when nothing stands before
// the tags, and when the comment is made of tags in words.
[[nodiscard]] std::optional<QString> commentsFromSpotlightComments(const QString& comment);
