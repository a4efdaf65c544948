// SPDX-License-Identifier: MIT
#pragma once

#include "enex/EnexTask.h"
#include "platform/core/Error.h"
#include "platform/xml/InputStream.h"
#include "platform/xml/XMLParserDelegate.h"

#include <QByteArray>
#include <QString>

#include <span>
#include <vector>

class QIODevice;

// Turns the events of an ENEX file as today's Evernote writes it into those of a classic one, which
// EvernoteXMLParseOperation reads without loss. It stands between an XMLParser, as its delegate,
// and the delegate that wants the classic events:
//
//     EnexModernizer modernizer(reader);
//     parser.setDelegate(&modernizer);
//
// Within a note
// - white space between elements is dropped; the text of titles, of file names, of data and of the
//   body stays as it is;
// - the other texts that are read (dates, tags, MIME types, sizes, sources, addresses) come trimmed
//   and in one piece;
// - the source web.clip7 becomes web.clip;
// - elements that are not read are dropped with all that they hold;
// - CDATA counts as characters everywhere but in the body, and data without an encoding as base64;
// - tasks become to-do lines in the body (see bodyWithTasks);
// - a body that was written as characters, not as CDATA, becomes CDATA;
// - a note without a body gets an empty one, and is not taken for one whose body cannot be read;
// - a file name that could not be one, because of its "/", becomes one.
// A classic file passes without a change that a reader could see, except that a note's content
// comes last. What stands outside notes passes as it is, its white space excepted.
//
// A note's body and tasks are held until the note ends, because the tasks follow the body; all else
// is passed on as it comes.
class EnexModernizer : public platform::XMLParserDelegate {
public:
    // The target must outlive the object.
    explicit EnexModernizer(platform::XMLParserDelegate& target);
    ~EnexModernizer() override;

    // Reads an ENEX file and writes it as a classic one, without white space between the elements
    // of its notes, in UTF-8. The output must be open for writing; it is neither closed nor
    // flushed. False with an error when the file cannot be read to its end or the output does not
    // take everything; what was written by then is of no use.
    [[nodiscard]] static bool writeModernizedCopy(platform::InputStream& input, QIODevice& output,
                                                  platform::Error* error = nullptr);
    // The same for a file by its path.
    [[nodiscard]] static bool writeModernizedCopy(const QString& inputPath, QIODevice& output,
                                                  platform::Error* error = nullptr);

    // The tasks of the note whose end is being passed on, all of them to-do lines of its body by
    // now.
    [[nodiscard]] qsizetype taskCount() const { return m_taskCount; }

    void parserDidStartElement(platform::XMLParser& parser, const QString& name,
                               const platform::XMLAttributes& attributes) override;
    void parserFoundCharacters(platform::XMLParser& parser, QUtf8StringView text) override;
    void parserFoundCData(platform::XMLParser& parser, QByteArrayView utf8) override;
    void parserDidEndElement(platform::XMLParser& parser, const QString& name) override;
    void parserParseErrorOccurred(platform::XMLParser& parser,
                                  const platform::Error& error) override;
    void parserDidEndDocument(platform::XMLParser& parser) override;

private:
    // The elements that hold others.
    enum class Place {
        Outside,
        Note,
        NoteAttributes,
        Resource,
        ResourceAttributes,
        Task,
        Reminder
    };
    // What becomes of an element's text.
    enum class Text {
        None,
        // Passed on as it comes.
        Passed,
        // Collected, trimmed, and passed on in one piece.
        Trimmed,
        // Collected, and passed on in one piece as a file name.
        FileName,
        // Collected and trimmed for a task.
        OfTask,
        // The body: held until the note ends.
        Content
    };
    // An element that is read.
    struct Element {
        QLatin1String name;
        Text text = Text::None;
        // Of an element that holds others: what they stand in.
        Place inside = Place::Outside;
    };

    [[nodiscard]] static bool isOfTask(Place place)
    {
        return place == Place::Task || place == Place::Reminder;
    }

    void startElementInNote(platform::XMLParser& parser, const QString& name,
                            const platform::XMLAttributes& attributes);
    [[nodiscard]] static std::span<const Element> elementsIn(Place place);
    // What an element is where the reading stands; null for one that is not read.
    [[nodiscard]] const Element* knownElement(const QString& name) const;
    [[nodiscard]] QByteArray trimmedText(const QString& name);
    void endText(platform::XMLParser& parser, const QString& name);
    void endTaskText(const QString& name);
    void endPlace(platform::XMLParser& parser, const QString& name);
    void passStart(platform::XMLParser& parser, const QString& name,
                   const platform::XMLAttributes& attributes);
    void passContent(platform::XMLParser& parser);
    void passEnd(platform::XMLParser& parser, const QString& name);
    void forgetNote();

    platform::XMLParserDelegate& m_target;
    Place m_place = Place::Outside;
    Text m_text = Text::None;
    // How many elements are open that are dropped, or that stand in a text.
    qsizetype m_droppedDepth = 0;
    // Notes inside the note; each is told of as an empty one, so that all that were counted are.
    qsizetype m_innerNotes = 0;

    // The text of the element that is being read.
    QByteArray m_collected;
    bool m_isWebClip = false;
    bool m_hasContent = false;
    // The body as CDATA, and as characters for the case that there is none.
    QByteArray m_content;
    QByteArray m_contentCharacters;
    bool m_contentHasElements = false;
    std::vector<EnexTask> m_tasks;
    qsizetype m_taskCount = 0;
};
