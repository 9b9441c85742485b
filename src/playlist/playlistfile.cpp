#include "playlistfile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>
#include <QUrl>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace quorvel {

namespace {

const QString kXspfNamespace = QStringLiteral("http://xspf.org/ns/0/");
const QString kApplication = QStringLiteral("quorvel");

bool IsLocation(const QString &entry)
{
    static const QRegularExpression scheme(QStringLiteral("\\A[A-Za-z][A-Za-z0-9+.-]*:"));
    return scheme.match(entry).hasMatch();
}

// The path relative to `baseDir` when the file lies in it or below, else empty.
QString RelativeBelow(const QString &path, const QString &baseDir)
{
    if (baseDir.isEmpty() || IsLocation(path))
        return {};
    const QString rel = QDir(baseDir).relativeFilePath(path);
    if (rel.startsWith(QStringLiteral("../")) || rel == QStringLiteral("..") || QDir::isAbsolutePath(rel))
        return {};
    return rel;
}

QString Resolve(const QString &entry, const QString &baseDir)
{
    if (QDir::isAbsolutePath(entry) || baseDir.isEmpty())
        return entry;
    return QDir::cleanPath(QDir(baseDir).filePath(entry));
}

QString XspfLocation(const QString &path, const QString &baseDir)
{
    if (const QString rel = RelativeBelow(path, baseDir); !rel.isEmpty())
        return QString::fromLatin1(QUrl::toPercentEncoding(rel, "/"));
    if (IsLocation(path))
        return path; // "dvd:///dev/sr0" and other engine locations stay as they are
    return QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded);
}

QString FromXspfLocation(const QString &location, const QString &baseDir)
{
    const QUrl url(location, QUrl::StrictMode);
    if (url.isLocalFile())
        return url.toLocalFile();
    if (url.isValid() && !url.scheme().isEmpty())
        return location;
    return Resolve(QUrl::fromPercentEncoding(location.toUtf8()), baseDir);
}

std::optional<PlaylistDocument> ReadXspf(const QByteArray &data, const QString &baseDir, QString *error)
{
    PlaylistDocument doc;
    QXmlStreamReader xml(data);
    bool sawPlaylist = false;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        const auto name = xml.name();
        if (name == u"playlist") {
            sawPlaylist = true;
        } else if (name == u"location") {
            const QString location = xml.readElementText().trimmed();
            if (!location.isEmpty())
                doc.paths << FromXspfLocation(location, baseDir);
        } else if (name == u"current") {
            doc.current = xml.readElementText().trimmed().toInt();
        } else if (name == u"position") {
            doc.positionMs = xml.readElementText().trimmed().toLongLong();
        }
    }
    if (xml.hasError() || !sawPlaylist) {
        if (error)
            *error = xml.hasError() ? xml.errorString() : QStringLiteral("no <playlist> element");
        return std::nullopt;
    }
    if (doc.current < -1 || doc.current >= doc.paths.size())
        doc.current = -1;
    return doc;
}

PlaylistDocument ReadM3u(const QByteArray &data, const QString &baseDir)
{
    PlaylistDocument doc;
    for (QString line : QString::fromUtf8(data).split(QLatin1Char('\n'))) {
        line = line.trimmed();
        if (line.isEmpty() || line.startsWith(u'#'))
            continue;
        const QUrl url(line, QUrl::StrictMode);
        doc.paths << (url.isLocalFile() ? url.toLocalFile() : IsLocation(line) ? line : Resolve(line, baseDir));
    }
    return doc;
}

} // namespace

PlaylistFormat PlaylistFormatOf(const QString &filePath)
{
    const QString suffix = QFileInfo(filePath).suffix().toLower();
    return suffix == u"m3u8" || suffix == u"m3u" ? PlaylistFormat::M3u8 : PlaylistFormat::Xspf;
}

QByteArray WritePlaylist(const PlaylistDocument &doc, PlaylistFormat format, const QString &baseDir)
{
    QByteArray out;
    if (format == PlaylistFormat::M3u8) {
        out = "#EXTM3U\n";
        for (const QString &path : doc.paths) {
            const QString rel = RelativeBelow(path, baseDir);
            out += (rel.isEmpty() ? path : rel).toUtf8() + '\n';
        }
        return out;
    }
    QXmlStreamWriter xml(&out);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeDefaultNamespace(kXspfNamespace);
    xml.writeStartElement(QStringLiteral("playlist"));
    xml.writeAttribute(QStringLiteral("version"), QStringLiteral("1"));
    if (doc.current >= 0) {
        xml.writeStartElement(QStringLiteral("extension"));
        xml.writeAttribute(QStringLiteral("application"), kApplication);
        xml.writeTextElement(QStringLiteral("current"), QString::number(doc.current));
        xml.writeTextElement(QStringLiteral("position"), QString::number(doc.positionMs));
        xml.writeEndElement();
    }
    xml.writeStartElement(QStringLiteral("trackList"));
    for (const QString &path : doc.paths) {
        xml.writeStartElement(QStringLiteral("track"));
        xml.writeTextElement(QStringLiteral("location"), XspfLocation(path, baseDir));
        xml.writeEndElement();
    }
    xml.writeEndDocument();
    return out;
}

std::optional<PlaylistDocument> ReadPlaylist(const QByteArray &data, const QString &baseDir, QString *error)
{
    const QByteArray head = data.left(512).trimmed();
    if (head.startsWith("<"))
        return ReadXspf(data, baseDir, error);
    return ReadM3u(data, baseDir);
}

bool SavePlaylistFile(const QString &filePath, const PlaylistDocument &doc, QString *error)
{
    const QFileInfo info(filePath);
    QDir().mkpath(info.absolutePath());
    QSaveFile file(filePath);
    if (file.open(QIODevice::WriteOnly)
        && file.write(WritePlaylist(doc, PlaylistFormatOf(filePath), info.absolutePath())) >= 0 && file.commit())
        return true;
    if (error)
        *error = file.errorString();
    return false;
}

std::optional<PlaylistDocument> LoadPlaylistFile(const QString &filePath, QString *error)
{
    QFile file(filePath);
    if (!file.open(QIODevice::ReadOnly)) {
        if (error)
            *error = file.errorString();
        return std::nullopt;
    }
    return ReadPlaylist(file.readAll(), QFileInfo(filePath).absolutePath(), error);
}

} // namespace quorvel
