// SPDX-License-Identifier: MIT
#include "bench/corpus/CorpusPages.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

namespace bench {

namespace {

QString folder()
{
    const QString named = qEnvironmentVariable("VUPUGE_BENCH_NOTES");
    return named.isEmpty() ? QStringLiteral(VUPUGE_SOURCE_DIRECTORY "/../shared/corpus") : named;
}

void addPages(QByteArrayView file, std::vector<QByteArray>& pages)
{
    static const QRegularExpression content(
        QStringLiteral("<content>\\s*<!\\[CDATA\\[(.*?)\\]\\]>\\s*</content>"),
        QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression prologue(QStringLiteral("<\\?xml[^>]*>|<!DOCTYPE[^>]*>"));
    const QString text = QString::fromUtf8(file);
    for (auto matches = content.globalMatch(text); matches.hasNext();) {
        const QString body = matches.next().captured(1).remove(prologue).trimmed();
        if (!body.isEmpty())
            pages.push_back("<html><head><title>Note</title></head><body>" + body.toUtf8() +
                            "</body></html>");
    }
}

} // namespace

std::vector<QByteArray> corpusPages()
{
    std::vector<QByteArray> pages;
    QDirIterator files(folder(), {QStringLiteral("*.enex")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (file.open(QIODevice::ReadOnly))
            addPages(file.readAll(), pages);
    }
    return pages;
}

} // namespace bench
