#include "commandline.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QUrl>

#include <sys/stat.h>

namespace quorvel {

namespace {

const QString kAddMarker = QStringLiteral("*Add");

QString absolutePath(const QString &argument, const QString &workingFolder)
{
    QString path = argument;
    if (argument.startsWith(QLatin1String("file://"), Qt::CaseInsensitive)) {
        const QUrl url(argument);
        if (url.isValid() && url.isLocalFile())
            path = url.toLocalFile();
    }
    if (!QDir::isAbsolutePath(path))
        path = workingFolder + u'/' + path;
    return QDir::cleanPath(path);
}

} // namespace

CommandLine CommandLine::parse(const QStringList &arguments, const QString &workingFolder)
{
    CommandLine c;
    for (const QString &argument : arguments) {
        if (argument == kAddMarker)
            c.forcePlay = false;
        else if (!argument.isEmpty())
            c.files << absolutePath(argument, workingFolder);
    }
    return c;
}

QString CommandLine::handOffText() const
{
    // A JSON array keeps every character of every name, line breaks included.
    return QString::fromUtf8(QJsonDocument(QJsonArray::fromStringList(files)).toJson(QJsonDocument::Compact));
}

QStringList CommandLine::filesOf(const QString &handOffText)
{
    const QJsonDocument doc = QJsonDocument::fromJson(handOffText.toUtf8());
    QStringList files;
    for (const QJsonValue &v : doc.array()) {
        if (!v.isString() || v.toString().isEmpty())
            return {};
        files << v.toString();
    }
    return files;
}

QString CallerWorkingFolder()
{
    const QString real = QDir::currentPath();
    const QByteArray pwd = qgetenv("PWD");
    struct stat a {
    }, b{};
    if (pwd.startsWith('/') && ::stat(pwd.constData(), &a) == 0 && ::stat(".", &b) == 0 && a.st_dev == b.st_dev
        && a.st_ino == b.st_ino)
        return QFile::decodeName(pwd);
    return real;
}

} // namespace quorvel
