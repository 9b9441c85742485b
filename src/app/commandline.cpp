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
    bool help = false, version = false, report = false, optionsEnd = false;
    auto fail = [&c](const QString &error) {
        if (c.error.isEmpty())
            c.error = error;
    };
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString &argument = arguments[i];
        if (!optionsEnd && argument == u"--") {
            optionsEnd = true;
        } else if (!optionsEnd && argument.startsWith(u"--")) {
            if (argument == u"--help")
                help = true;
            else if (argument == u"--version")
                version = true;
            else if (argument != u"--report")
                fail(QStringLiteral("unknown option '%1'").arg(argument));
            else if (report || i + 1 == arguments.size())
                fail(QStringLiteral("--report takes one file"));
            else {
                report = true;
                c.reportFile = arguments[++i];
            }
        } else if (argument == kAddMarker) {
            c.forcePlay = false;
        } else if (!argument.isEmpty()) {
            c.files << absolutePath(argument, workingFolder);
        }
    }
    if (report && (!c.files.isEmpty() || !c.forcePlay))
        fail(QStringLiteral("--report takes one file and nothing else"));
    if (!c.error.isEmpty())
        c.action = Action::Invalid;
    else if (help)
        c.action = Action::Help;
    else if (version)
        c.action = Action::Version;
    else if (report)
        c.action = Action::Report;
    return c;
}

QString CommandLine::usageText()
{
    return QStringLiteral("Usage: quorvel [--help] [--version] [--report FILE] [*Add] [--] [FILE...]\n"
                          "Try 'quorvel --help' for more.\n");
}

QString CommandLine::helpText()
{
    return QStringLiteral("Usage: quorvel [*Add] [--] [FILE...]\n"
                          "       quorvel --report FILE\n"
                          "Plays audio and video files, video DVDs, DVD folders and .iso images.\n"
                          "\n"
                          "  FILE...        play the first file and add the others to the playlist;\n"
                          "                 relative names are taken from the current folder, and\n"
                          "                 file:// URIs are files too. While Quorvel runs, a start\n"
                          "                 hands its files to the running window, which adds them\n"
                          "                 without playing.\n"
                          "  *Add           only add the files to the playlist, play nothing\n"
                          "  --             every argument after it is a file, even one that starts\n"
                          "                 with \"--\"\n"
                          "  --report FILE  print FILE's media report (streams, codecs, sizes, rates,\n"
                          "                 duration) without opening a window\n"
                          "  --help         show this help and exit\n"
                          "  --version      show the versions of Quorvel and libVLC and exit\n"
                          "\n"
                          "Settings are in \"Config.cfg\" beside the program when that folder is\n"
                          "writable, otherwise in ~/.config/quorvel/. The user guide opens with F1.\n");
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
