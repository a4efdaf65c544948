// SPDX-License-Identifier: MIT
#pragma once

#include "platform/core/Error.h"
#include "platform/core/Url.h"
#include "platform/pasteboard/Pasteboard.h"
#include "platform/types/FileTypeIcon.h"
#include "platform/undo/UndoManager.h"

#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <optional>

// Errors of bookmarks.
inline const QString qlWebBookmarkErrorDomain = QStringLiteral("QLWebBookmarkErrorDomain");
inline constexpr qint64 qlWebBookmarkInvalidValueError = 10001;

// A bookmark: a name and an address, as a small property list whose extension tells the kind of
// address.
//
// The file is a binary property list with a dictionary: "URL", the address as text, "" without one,
// and "public.url-name", the name, when it has one. Any form of property list is read, and
// shortcuts (".url"). Addresses stay as they are written; what may not stand in one is escaped when
// it is read.
class QLWebBookmarkFile : public std::enable_shared_from_this<QLWebBookmarkFile> {
public:
    using Pointer = std::shared_ptr<QLWebBookmarkFile>;

    [[nodiscard]] static Pointer bookmarkWithName(const QString& name, const platform::Url& url);
    // A file of the extension "url", in small letters, is read as a shortcut, any other as a
    // property list. Never null: what cannot be read leaves its field empty.
    [[nodiscard]] static Pointer bookmarkWithFileAtURL(const QUrl& fileUrl);

    // "webloc" for schemes that begin with http, "ftploc" for ftp, "mailloc" for mailto, "afploc"
    // for afp, "fileloc" for file, "newsloc" for news, all in any case; "inetloc" for any other,
    // and without one.
    [[nodiscard]] static QString fileExtensionForURL(const platform::Url& url);
    // The extensions that can be read.
    [[nodiscard]] static QStringList bookmarkFileTypes();
    [[nodiscard]] static QStringList bookmarksPasteboardTypes();

    // What iconImage and canPreviewBookmark depend on: their observers are told when one of these
    // changes.
    [[nodiscard]] static QSet<QString> keyPathsForValuesAffectingIconImage();
    [[nodiscard]] static QSet<QString> keyPathsForValuesAffectingCanPreviewBookmark();

    // Whether bookmarks can be made of what the pasteboard offers: links and texts that are
    // addresses, but no mail message and no item of the notes application.
    [[nodiscard]] static bool canInitWithPasteboard(const platform::Pasteboard& pasteboard);
    // By the first of these that it offers: lists of addresses with titles, a URL with its name, a
    // text that is an address. A mail address becomes a "mailto:" URL. Entries that make no URL are
    // left out.
    [[nodiscard]] static QList<Pointer>
    bookmarksWithPasteboard(const platform::Pasteboard& pasteboard);
    // All bookmarks as lists of addresses with titles and as labelled addresses, in which an
    // example address stands for one that is missing; the first also as a URL and as text. Always
    // true.
    static bool writeBookmarkFiles(const QList<Pointer>& bookmarks,
                                   platform::Pasteboard& pasteboard);

    QLWebBookmarkFile() = default;
    QLWebBookmarkFile(const QLWebBookmarkFile&) = delete;
    QLWebBookmarkFile& operator=(const QLWebBookmarkFile&) = delete;

    // Another bookmark with this one's name and URL, but no undo manager, file URL and observers.
    [[nodiscard]] Pointer copy() const;

    // The URL's host when no name is set.
    [[nodiscard]] QString name() const;
    // Kept without line ends and tabs. Equal names change nothing, whoever is asked; else the undo
    // manager can take the change back.
    void setName(const QString& name);

    [[nodiscard]] const platform::Url& URL() const { return m_url; }
    // The same for URLs.
    void setURL(const platform::Url& url);

    [[nodiscard]] const std::shared_ptr<platform::UndoManager>& undoManager() const
    {
        return m_undoManager;
    }
    void setUndoManager(std::shared_ptr<platform::UndoManager> manager)
    {
        m_undoManager = std::move(manager);
    }

    // Where the bookmark was read from or is to be written; for the owner's use. Set whole: a
    // thread that asks while another sets it gets the old or the new one.
    [[nodiscard]] QUrl fileURL() const;
    void setFileURL(const QUrl& url) { m_fileUrl.store(std::make_shared<const QUrl>(url)); }

    // Calls back after each change of "name", "URL", "iconImage" or "canPreviewBookmark". The
    // observer stays as long as the bookmark unless it is removed by the number given back.
    using Observer = std::function<void(const QString& key)>;
    int addObserver(const QString& key, Observer observer);
    void removeObserver(int number) { m_observers.erase(number); }

    // The file's bytes.
    [[nodiscard]] std::optional<QByteArray> fileData(platform::Error* error = nullptr) const;
    // Writes in place; a file that was there keeps its creation date, as far as the file system
    // lets it.
    [[nodiscard]] bool writeToFileAtURL(const QUrl& fileUrl,
                                        platform::Error* error = nullptr) const;

    // Takes URL and name from a property list, and the file's name without its extension where no
    // name is set then. True whatever the file holds.
    bool readWeblocFile(const QUrl& fileUrl);
    // Takes the address behind the first "URL=" of a UTF-8 text, and the file's name. A text that
    // is no UTF-8 is taken for Windows Latin 1. False, and nothing has changed, without "URL=".
    bool readURLFile(const QUrl& fileUrl);

    // That of its kind of file, 96 by 96 points.
    [[nodiscard]] platform::FileTypeIcon iconImage() const;
    // A file name with extension: of the name, unless that is a web address itself; else of the
    // mail address, the last part of the path, or the whole address. Throws as
    // stringSanitizedForFileName does.
    [[nodiscard]] QString suggestedFilename() const;
    // The scheme is http or https, in small letters.
    [[nodiscard]] bool canPreviewBookmark() const;

    // False, with an error, for an empty name.
    [[nodiscard]] bool validateName(QString& name, platform::Error* error = nullptr) const;
    // False, with an error, without a URL. A web address without a path is given one: "/".
    [[nodiscard]] bool validateURL(platform::Url& url, platform::Error* error = nullptr) const;

private:
    void didChangeValueForKey(const QString& key);

    struct KeyObserver {
        QString key;
        Observer observer;
    };

    QString m_name;
    platform::Url m_url;
    std::atomic<std::shared_ptr<const QUrl>> m_fileUrl;
    std::shared_ptr<platform::UndoManager> m_undoManager;
    std::map<int, KeyObserver> m_observers;
    int m_lastObserver = 0;
};
