// SPDX-License-Identifier: MIT
#pragma once

#include "bench/generator/Random.h"

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

namespace bench {

enum class NotebookKind {
    Mixed,  // text of a few kilobytes; every fourth note holds an attachment of 100 KB
    Text,   // text of a few kilobytes
    Images, // one to three pictures of 100 KB in each note
    Small,  // two lines a note
    Huge,   // a megabyte of text and an attachment of 20 MB in each note
    Clips,  // web clips: styled page markup with one picture of 30 KB
};

[[nodiscard]] std::optional<NotebookKind> notebookKind(QByteArrayView name);

// Writes notes one by one, in the layout without white space between a note's elements.
class NoteWriter {
public:
    NoteWriter(NotebookKind kind, std::uint64_t seed)
        : m_kind(kind)
        , m_random(seed)
    {
    }

    [[nodiscard]] static QByteArray header();
    [[nodiscard]] static QByteArray footer();
    // The note element of note number index, counted from 0.
    [[nodiscard]] QByteArray note(qint64 index);
    // The body of a note element that note() gave: the ENML document.
    [[nodiscard]] static QByteArray body(const QByteArray& note);

private:
    void appendSentence(QByteArray& out);
    void appendParagraphs(QByteArray& out, qsizetype bytes);
    void appendList(QByteArray& out, const char* element);
    void appendChecklist(QByteArray& out);
    void appendTable(QByteArray& out);
    void appendBody(QByteArray& out);
    void appendClip(QByteArray& out);
    // Adds the place to the body and the resource to the note's resources.
    void attach(QByteArray& body, const QByteArray& data, const char* mime, const QByteArray& name);
    void attachPicture(QByteArray& body, int width, int height);

    NotebookKind m_kind;
    Random m_random;
    QByteArray m_resources;
};

} // namespace bench
