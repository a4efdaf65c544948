// SPDX-License-Identifier: MIT
#include "import/ExportingEvernote.h"

#include <QDir>
#include <QFileInfo>

using platform::Error;
using platform::EvernoteNote;

namespace {

void write(const QString& path, const QByteArray& bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << qPrintable(path);
    file.write(bytes);
}

} // namespace

std::vector<std::shared_ptr<platform::EvernoteNotebook>> ExportingEvernote::notebooks()
{
    return {m_notebooks.begin(), m_notebooks.end()};
}

std::shared_ptr<ExportingNotebook> ExportingEvernote::addNotebook(const QString& name)
{
    m_notebooks.push_back(std::make_shared<ExportingNotebook>());
    m_notebooks.back()->nameText = name;
    return m_notebooks.back();
}

QByteArray ExportingEvernote::page(const QByteArray& body)
{
    return "<html><head><title>Page</title></head><body>" + body + "</body></html>";
}

std::shared_ptr<ExportingNote> ExportingEvernote::addNote(ExportingNotebook& notebook,
                                                          const QString& title,
                                                          const QByteArray& body)
{
    const auto note = std::make_shared<ExportingNote>();
    note->titleText = title;
    note->enex = "<note><title>" + title.toHtmlEscaped().toUtf8() +
                 "</title><content><![CDATA[<en-note>" + body + "</en-note>]]></content></note>";
    note->pages = {{QStringLiteral("Page.html"), page(body)}};
    notebook.allNotes.push_back(note);
    return note;
}

bool ExportingEvernote::exportNotes(const std::vector<std::shared_ptr<EvernoteNote>>& notes,
                                    const QString& to, ExportTags tags, ExportFormat format,
                                    Error* error)
{
    QStringList titles;
    for (const auto& note : notes)
        titles += note->title();
    exports.push_back({titles, to, tags, format});
    if (onExport)
        onExport(to);
    if (writes && format == ExportFormat::ENEX) {
        QByteArray document = "<en-export>";
        for (const auto& note : notes)
            document += std::static_pointer_cast<ExportingNote>(note)->enex;
        write(to, document + "</en-export>");
    } else if (writes) {
        const auto note = std::static_pointer_cast<ExportingNote>(notes.front());
        for (auto file = note->pages.cbegin(); file != note->pages.cend(); ++file)
            write(to + QLatin1Char('/') + file.key(), file.value());
    }
    if (failure)
        platform::setError(error, *failure);
    return !failure;
}
