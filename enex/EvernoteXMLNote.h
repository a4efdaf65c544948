// SPDX-License-Identifier: MIT
#pragma once

#include "enex/EvernoteXMLItemNoteAttributes.h"
#include "enex/EvernoteXMLResource.h"
#include "enex/NoteCounts.h"
#include "enex/NoteLinkTargets.h"
#include "platform/core/Error.h"
#include "platform/operations/OperationGroup.h"
#include "platform/scripting/ImportManifest.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <memory>
#include <optional>
#include <vector>

// One note as the parser fills it; what it becomes is up to the class that implements itemDictInGroup.
class EvernoteXMLNote {
public:
    // directoryURL: the import folder of this run.
    explicit EvernoteXMLNote(const QUrl& directoryURL);
    virtual ~EvernoteXMLNote();
    EvernoteXMLNote(const EvernoteXMLNote&) = delete;
    EvernoteXMLNote& operator=(const EvernoteXMLNote&) = delete;

    // Converts the note, writes its file, and returns its manifest record. groupDict: the record of the
    // folder that receives it. None when there is no file; the error may then still be untouched. Called
    // once.
    [[nodiscard]] virtual platform::manifest::Record itemDictInGroup(const platform::manifest::Record& groupDict,
                                                                     platform::Error* error = nullptr)
        = 0;

    [[nodiscard]] const QUrl& directoryURL() const { return m_directoryURL; }
    // A UUID; it also names the note's scratch folder and page.
    [[nodiscard]] const QString& identifier() const { return m_identifier; }
    // Before the conversion, for a note that links may have named already.
    void setIdentifier(const QString& identifier) { m_identifier = identifier; }

    [[nodiscard]] const QString& title() const { return m_title; }
    void setTitle(const QString& title) { m_title = title; }
    void appendTitle(QUtf8StringView chunk) { m_title += chunk.toString(); }

    // The ENML document, as the bytes of its CDATA sections.
    [[nodiscard]] const QByteArray& contentData() const { return m_contentData; }
    void setContentData(const QByteArray& data) { m_contentData = data; }
    void appendContentData(QByteArrayView bytes) { m_contentData.append(bytes); }

    [[nodiscard]] const std::optional<QDateTime>& created() const { return m_created; }
    void setCreated(const std::optional<QDateTime>& created) { m_created = created; }
    [[nodiscard]] const std::optional<QDateTime>& updated() const { return m_updated; }
    void setUpdated(const std::optional<QDateTime>& updated) { m_updated = updated; }

    [[nodiscard]] EvernoteXMLItemNoteAttributes& noteAttributes() { return m_noteAttributes; }
    [[nodiscard]] const EvernoteXMLItemNoteAttributes& noteAttributes() const { return m_noteAttributes; }

    // One entry a text chunk of a tag element, empty ones included, in document order.
    [[nodiscard]] const QStringList& tags() const { return m_tags; }
    void addTag(const QString& tag) { m_tags += tag; }

    // In document order.
    using Resources = std::vector<std::shared_ptr<EvernoteXMLResource>>;
    [[nodiscard]] const Resources& resources() const { return m_resources; }
    void addResource(std::shared_ptr<EvernoteXMLResource> resource)
    {
        m_resources.push_back(std::move(resource));
        ++m_counts.resources;
    }

    // The notes that links may lead to; null where links stay as they are.
    [[nodiscard]] const std::shared_ptr<const NoteLinkTargets>& linkTargets() const { return m_linkTargets; }
    void setLinkTargets(std::shared_ptr<const NoteLinkTargets> targets) { m_linkTargets = std::move(targets); }
    // The identifiers of the notes that the note's links lead to now, one entry a link.
    [[nodiscard]] const QStringList& linkedNotes() const { return m_linkedNotes; }

    // What the conversion waits for. Whoever cancels it ends the wait, from any thread; what the note was
    // waiting for is then missing.
    [[nodiscard]] const std::shared_ptr<platform::OperationGroup>& awaitedOperations() const { return m_awaitedOperations; }
    void setAwaitedOperations(std::shared_ptr<platform::OperationGroup> group) { m_awaitedOperations = std::move(group); }

    // What the note holds; after the conversion, what became of it.
    [[nodiscard]] const NoteCounts& counts() const { return m_counts; }
    [[nodiscard]] NoteCounts& counts() { return m_counts; }

    // What the person should hear although the note came across, in their language.
    [[nodiscard]] const QStringList& warnings() const { return m_warnings; }
    // Why there is no file, where the error was not handed out.
    [[nodiscard]] const std::optional<platform::Error>& withheldError() const { return m_withheldError; }

protected:
    void setLinkedNotes(const QStringList& identifiers) { m_linkedNotes = identifiers; }
    void addWarning(const QString& warning) { m_warnings += warning; }
    void withholdError(const platform::Error& error) { m_withheldError = error; }

private:
    QUrl m_directoryURL;
    QString m_identifier;
    QString m_title;
    QByteArray m_contentData;
    std::optional<QDateTime> m_created;
    std::optional<QDateTime> m_updated;
    EvernoteXMLItemNoteAttributes m_noteAttributes;
    QStringList m_tags;
    Resources m_resources;
    std::shared_ptr<const NoteLinkTargets> m_linkTargets;
    QStringList m_linkedNotes;
    std::shared_ptr<platform::OperationGroup> m_awaitedOperations = std::make_shared<platform::OperationGroup>();
    NoteCounts m_counts;
    QStringList m_warnings;
    std::optional<platform::Error> m_withheldError;
};
