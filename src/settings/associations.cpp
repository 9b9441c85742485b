#include "settings/associations.h"

#include "common/logging.h"
#include "settings/keyvaluestore.h"

#include <QMimeDatabase>

namespace quorvel {

namespace {

// Extensions the MIME database may not know, and the type they belong to.
const QMap<QString, QString> kKnownTypes = {{u"hdmov"_qs, u"video/quicktime"_qs}};

const QString kSavedKey = u"Software/Brenlow/Quorvel/Associations/"_qs;
const QString kOldAss = u"OldAss"_qs;
// Stand for "no previous default" and "not associated by the player": a
// newline can be no handler's name.
const QString kNone = u"\n"_qs;
const QString kNeverSaved = u"\n\n"_qs;

bool validIndex(int index)
{
    return index >= 0 && index < kMediaExtensionCount;
}

} // namespace

QString FileAssociations::MimeTypeOf(int index)
{
    if (!validIndex(index))
        return {};
    const QString ext = MediaExtensions()[index];
    const QMimeType type = QMimeDatabase().mimeTypeForFile(u"x."_qs + ext, QMimeDatabase::MatchExtension);
    if (type.isDefault() || !type.isValid())
        return kKnownTypes.value(ext, u"application/octet-stream"_qs);
    return type.name();
}

QStringList FileAssociations::ExtensionsSharingType(int index)
{
    QStringList shared;
    const QString type = MimeTypeOf(index);
    for (int i = 0; i < kMediaExtensionCount && !type.isEmpty(); ++i) {
        if (MimeTypeOf(i) == type)
            shared << MediaExtensions()[i];
    }
    return shared;
}

bool FileAssociations::ownsDefault(const QString &mimeType) const
{
    const std::optional<QString> current = m_desktop.defaultHandler(mimeType);
    // A list of handlers names its first choice first.
    return current && current->section(u';', 0, 0).trimmed() == m_desktop.handlerId();
}

bool FileAssociations::IsAssociated(int index) const
{
    return validIndex(index) && ownsDefault(MimeTypeOf(index));
}

FileAssociations::HandledTypes FileAssociations::AllHandledTypes()
{
    HandledTypes handled;
    const QMimeDatabase db;
    for (int i = 0; i < kMediaExtensionCount; ++i) {
        const QString type = MimeTypeOf(i);
        if (!handled.mimeTypes.contains(type))
            handled.mimeTypes << type;
        const QString ext = MediaExtensions()[i];
        if (kKnownTypes.contains(ext) && db.mimeTypeForFile(u"x."_qs + ext, QMimeDatabase::MatchExtension).isDefault())
            handled.extraGlobs.insert(ext, type);
    }
    return handled;
}

void FileAssociations::registerHandler()
{
    const HandledTypes handled = AllHandledTypes();
    m_desktop.registerHandler(handled.mimeTypes, handled.extraGlobs);
}

void FileAssociations::Associate(const QString &mimeType)
{
    if (ownsDefault(mimeType))
        return;
    const std::optional<QString> old = m_desktop.defaultHandler(mimeType);
    m_store.RegSetString(kSavedKey + mimeType, kOldAss, old.value_or(kNone));
    if (m_desktop.setDefaultHandler(mimeType, m_desktop.handlerId()))
        qCDebug(lcApp) << "associated" << mimeType << "in place of" << old.value_or(u"nothing"_qs);
}

void FileAssociations::Unassociate(const QString &mimeType)
{
    if (!ownsDefault(mimeType))
        return;
    // A default the user gave the player elsewhere (a file manager's "open
    // with" choice) has nothing to give back and stays.
    const QString old = m_store.RegGetString(kSavedKey + mimeType, kOldAss, kNeverSaved);
    if (old == kNeverSaved)
        return;
    if (!m_desktop.setDefaultHandler(mimeType, old == kNone ? std::nullopt : std::optional<QString>(old)))
        return;
    m_store.RegDeleteValueAt(kSavedKey + mimeType, kOldAss);
    qCDebug(lcApp) << "unassociated" << mimeType << "back to" << (old == kNone ? u"nothing"_qs : old);
}

// `first` is the index of the type's first extension in the table, whose
// icon the type gets.
void FileAssociations::showTypeIcon(int first)
{
    const QString type = MimeTypeOf(first);
    m_desktop.showTypeIcon(type, MediaExtensions()[first], ownsDefault(type));
}

int FileAssociations::firstOfType(int index)
{
    int first = 0;
    while (MimeTypeOf(first) != MimeTypeOf(index))
        ++first;
    return first;
}

void FileAssociations::RegisterExtension(int index)
{
    if (!validIndex(index))
        return;
    registerHandler();
    Associate(MimeTypeOf(index));
    showTypeIcon(firstOfType(index));
}

void FileAssociations::UnregisterExtension(int index)
{
    if (!validIndex(index))
        return;
    Unassociate(MimeTypeOf(index));
    showTypeIcon(firstOfType(index));
}

void FileAssociations::ApplyAssociations(const std::array<std::int16_t, kMediaExtensionCount> &AssocFlags)
{
    QStringList types;
    QList<int> firsts; // of each type, its first extension
    QStringList wanted;
    for (int i = 0; i < kMediaExtensionCount; ++i) {
        const QString type = MimeTypeOf(i);
        if (!types.contains(type)) {
            types << type;
            firsts << i;
        }
        if (AssocFlags[i] != 0 && !wanted.contains(type))
            wanted << type;
    }
    if (!wanted.isEmpty())
        registerHandler();
    for (qsizetype t = 0; t < types.size(); ++t) {
        if (wanted.contains(types[t]))
            Associate(types[t]);
        else
            Unassociate(types[t]);
        showTypeIcon(firsts[t]);
    }
}

QString FileAssociations::GetExtensionProgID(const QString &e) const
{
    const int index = MediaExtensionIndex(u"x."_qs + e);
    const std::optional<QString> handler = m_desktop.defaultHandler(MimeTypeOf(index));
    return index < 0 || !handler || handler->isEmpty() ? u"-1"_qs : *handler;
}

} // namespace quorvel
