#include "settings/filestore.h"

#include "common/logging.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSaveFile>
#include <QStandardPaths>

#include <utility>

namespace quorvel {

QString NormalizeStoreKey(const QString &key)
{
    QString normal = key;
    normal.replace(u'\\', u'/');
    return normal.split(u'/', Qt::SkipEmptyParts).join(u'/');
}

namespace {

// A store file is an object of keys, each an object of string values.
bool wellFormed(const QJsonObject &root)
{
    for (auto key = root.begin(); key != root.end(); ++key) {
        if (!key.value().isObject())
            return false;
        const QJsonObject values = key.value().toObject();
        for (auto value = values.begin(); value != values.end(); ++value) {
            if (!value.value().isString())
                return false;
        }
    }
    return true;
}

} // namespace

FileStore::FileStore(QString filePath) : m_filePath(std::move(filePath)) {}

QString FileStore::defaultPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + QStringLiteral("/quorvel/")
           + QStringLiteral("registry.json");
}

QJsonObject FileStore::read() const
{
    QFile file(m_filePath);
    if (!file.exists() || !file.open(QIODevice::ReadOnly))
        return {};
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (error.error == QJsonParseError::NoError && document.isObject() && wellFormed(document.object()))
        return document.object();
    qCWarning(lcApp) << "store file" << m_filePath << "is damaged; starting it afresh";
    write({});
    return {};
}

bool FileStore::write(const QJsonObject &root) const
{
    QDir().mkpath(QFileInfo(m_filePath).absolutePath());
    QSaveFile file(m_filePath);
    if (!file.open(QIODevice::WriteOnly)) {
        qCWarning(lcApp) << "cannot write store file" << m_filePath << file.errorString();
        return false;
    }
    file.write(QJsonDocument(root).toJson(QJsonDocument::Indented));
    return file.commit();
}

void FileStore::RegSetString(const QString &key, const QString &name, const QString &data)
{
    QJsonObject root = read();
    const QString k = NormalizeStoreKey(key);
    QJsonObject values = root.value(k).toObject();
    values.insert(name, data);
    root.insert(k, values);
    write(root);
}

QString FileStore::RegGetString(const QString &key, const QString &name, const QString &fallback) const
{
    const QJsonValue value = read().value(NormalizeStoreKey(key)).toObject().value(name);
    return value.isString() ? value.toString() : fallback;
}

void FileStore::RegDeleteValueAt(const QString &key, const QString &name)
{
    QJsonObject root = read();
    const QString k = NormalizeStoreKey(key);
    QJsonObject values = root.value(k).toObject();
    if (!values.contains(name))
        return;
    values.remove(name);
    root.insert(k, values);
    write(root);
}

} // namespace quorvel
