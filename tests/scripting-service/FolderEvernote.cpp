// SPDX-License-Identifier: MIT
#include "scripting-service/FolderEvernote.h"

#include "platform/files/FileManager.h"
#include "scripting-service/HoldFile.h"

#include <QDir>
#include <QRegularExpression>

namespace test {

using platform::EvernoteNote;
using platform::EvernoteNotebook;

namespace {

QString plain(QString markup)
{
    return markup.replace(QLatin1String("&lt;"), QLatin1String("<"))
        .replace(QLatin1String("&gt;"), QLatin1String(">"))
        .replace(QLatin1String("&amp;"), QLatin1String("&"));
}

class FolderNote : public EvernoteNote {
public:
    FolderNote(const QString& markup, QString link)
        : m_markup(markup)
        , m_link(std::move(link))
    {
        const qsizetype content = markup.indexOf(QLatin1String("<content>"));
        const qsizetype end = markup.lastIndexOf(QLatin1String("</content>"));
        m_properties = end > content ? markup.left(content) + markup.mid(end) : markup;
    }

    [[nodiscard]] QString title() override { return texts("title").value(0); }
    [[nodiscard]] QStringList tags() override { return texts("tag"); }
    [[nodiscard]] QDateTime creationDate() override { return date("created"); }
    [[nodiscard]] QDateTime modificationDate() override { return date("updated"); }
    [[nodiscard]] QString noteLink() override { return m_link; }
    [[nodiscard]] QString sourceURL() override { return texts("source-url").value(0); }

    [[nodiscard]] const QString& markup() const { return m_markup; }
    [[nodiscard]] QString page() const
    {
        static const QRegularExpression body(QStringLiteral("<en-note[^>]*>(.*)</en-note>"),
                                             QRegularExpression::DotMatchesEverythingOption);
        return body.match(m_markup).captured(1);
    }

private:
    // Of all elements of a name outside the content.
    [[nodiscard]] QStringList texts(const char* element) const
    {
        const QString opening = QStringLiteral("<%1>").arg(QLatin1String(element));
        const QString closing = QStringLiteral("</%1>").arg(QLatin1String(element));
        QStringList found;
        qsizetype begin = m_properties.indexOf(opening);
        while (begin >= 0) {
            begin += opening.size();
            const qsizetype end = m_properties.indexOf(closing, begin);
            if (end < 0)
                break;
            found += plain(m_properties.mid(begin, end - begin));
            begin = m_properties.indexOf(opening, end);
        }
        return found;
    }
    [[nodiscard]] QDateTime date(const char* element) const
    {
        QDateTime date =
            QDateTime::fromString(texts(element).value(0), QStringLiteral("yyyyMMdd'T'HHmmss'Z'"));
        date.setTimeSpec(Qt::UTC);
        return date;
    }

    const QString m_markup;
    const QString m_link;
    QString m_properties; // the markup without the content
};

class FolderNotebook : public EvernoteNotebook {
public:
    FolderNotebook(QString name, const QString& file)
        : m_name(std::move(name))
    {
        const QString markup = platform::readTextFile(file).value_or(QString());
        if (!markup.contains(QLatin1String("</en-export>")))
            m_problem = platform::Error(QStringLiteral("FolderEvernote"), 1,
                                        QStringLiteral("%1 is damaged.").arg(m_name));
        const QString closing = QStringLiteral("</note>");
        qsizetype begin = markup.indexOf(QLatin1String("<note>"));
        while (begin >= 0) {
            const qsizetype found = markup.indexOf(closing, begin);
            if (found < 0)
                break;
            const qsizetype end = found + closing.size();
            const QString link =
                QStringLiteral("evernote:///view/1/s1/%1-%2").arg(m_name).arg(m_notes.size() + 1);
            m_notes.push_back(std::make_shared<FolderNote>(markup.mid(begin, end - begin), link));
            begin = markup.indexOf(QLatin1String("<note>"), end);
        }
    }

    [[nodiscard]] QString name() override { return m_name; }
    [[nodiscard]] std::vector<std::shared_ptr<EvernoteNote>> notes() override { return m_notes; }
    [[nodiscard]] std::optional<platform::Error> problem() override { return m_problem; }

private:
    const QString m_name;
    std::vector<std::shared_ptr<EvernoteNote>> m_notes;
    std::optional<platform::Error> m_problem;
};

bool writeText(const QString& path, const QString& text, platform::Error* error)
{
    return platform::writeFile(path, text.toUtf8(), platform::WriteOption::Atomic, error);
}

} // namespace

FolderEvernote::FolderEvernote(const QString& folder, QString holdFile)
    : m_holdFile(std::move(holdFile))
{
    const QFileInfoList files =
        QDir(folder).entryInfoList({QStringLiteral("*.enex")}, QDir::Files, QDir::Name);
    for (const QFileInfo& file : files) {
        m_notebooks.push_back(
            std::make_shared<FolderNotebook>(file.completeBaseName(), file.filePath()));
    }
}

bool FolderEvernote::exportNotes(const std::vector<std::shared_ptr<EvernoteNote>>& notes,
                                 const QString& to, ExportTags tags, ExportFormat format,
                                 platform::Error* error)
{
    waitForFile(m_holdFile);
    m_warnings.clear();
    if (format == ExportFormat::HTML &&
        !platform::createDirectory(to, platform::IntermediateFolders::Require, error))
        return false;
    static const QRegularExpression tag(QStringLiteral("<tag>[^<]*</tag>"));
    QString enex = QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<en-export>");
    for (const auto& note : notes) {
        auto& own = dynamic_cast<FolderNote&>(*note);
        const QString page = QStringLiteral("%1/%2.html").arg(to, own.title());
        if (format == ExportFormat::HTML && !writeText(page, own.page(), error))
            return false;
        if (own.markup().contains(QLatin1String("<en-crypt")))
            m_warnings += QStringLiteral("%1 is encrypted.").arg(own.title());
        enex += tags == ExportTags::Yes ? own.markup() : QString(own.markup()).remove(tag);
    }
    return format == ExportFormat::HTML ||
           writeText(to, enex + QStringLiteral("</en-export>\n"), error);
}

} // namespace test
