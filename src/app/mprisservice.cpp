#include "mprisservice.h"

#include "app/mprismodel.h"
#include "common/logging.h"

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QDBusMessage>

namespace quorvel {

namespace {
const QString kObjectPath = u"/org/mpris/MediaPlayer2"_qs;
const QString kServiceName = u"org.mpris.MediaPlayer2.quorvel"_qs;
const QString kPlayerInterface = u"org.mpris.MediaPlayer2.Player"_qs;
} // namespace

MprisService::MprisService(MprisModel &model, QObject *parent) : QObject(parent), m_model(model)
{
    new MprisRootAdaptor(this);
    auto *player = new MprisPlayerAdaptor(this);
    connect(&model, &MprisModel::seeked, player, &MprisPlayerAdaptor::Seeked);
    connect(&model, &MprisModel::propertiesChanged, this, &MprisService::tellChanged);
}

MprisService::~MprisService()
{
    if (m_serviceName.isEmpty())
        return;
    m_bus.unregisterObject(kObjectPath);
    m_bus.unregisterService(m_serviceName);
}

bool MprisService::registerOn(const QDBusConnection &bus)
{
    if (!bus.isConnected() || !bus.interface())
        return false;
    m_bus = bus;
    if (!m_bus.registerObject(kObjectPath, this)) {
        qCDebug(lcApp) << "media player bus: the object path is taken";
        return false;
    }
    // A second player (new instance every time) takes a name of its own.
    for (const QString &name :
         {kServiceName, kServiceName + u".instance"_qs + QString::number(QCoreApplication::applicationPid())}) {
        if (m_bus.registerService(name)) {
            m_serviceName = name;
            qCDebug(lcApp) << "media player bus name" << name;
            return true;
        }
    }
    m_bus.unregisterObject(kObjectPath);
    return false;
}

void MprisService::tellChanged(const QVariantMap &changed)
{
    if (m_serviceName.isEmpty())
        return;
    QDBusMessage signal = QDBusMessage::createSignal(kObjectPath, u"org.freedesktop.DBus.Properties"_qs,
                                                     u"PropertiesChanged"_qs);
    signal << kPlayerInterface << changed << QStringList();
    m_bus.send(signal);
}

MprisRootAdaptor::MprisRootAdaptor(MprisService *service) : QDBusAbstractAdaptor(service), m_service(service) {}

QStringList MprisRootAdaptor::supportedUriSchemes() const
{
    return MprisModel::supportedUriSchemes();
}

QStringList MprisRootAdaptor::supportedMimeTypes() const
{
    return MprisModel::supportedMimeTypes();
}

void MprisRootAdaptor::Raise()
{
    m_service->model().raise();
}

void MprisRootAdaptor::Quit()
{
    m_service->model().quit();
}

MprisPlayerAdaptor::MprisPlayerAdaptor(MprisService *service) : QDBusAbstractAdaptor(service), m_service(service) {}

MprisModel &MprisPlayerAdaptor::model() const
{
    return m_service->model();
}

QString MprisPlayerAdaptor::playbackStatus() const
{
    return model().playbackStatus();
}

QString MprisPlayerAdaptor::loopStatus() const
{
    return model().loopStatus();
}

void MprisPlayerAdaptor::setLoopStatus(const QString &status)
{
    if (!model().setLoopStatus(status))
        qCDebug(lcApp) << "media player bus: no such loop status" << status;
}

double MprisPlayerAdaptor::rate() const
{
    return model().rate();
}

void MprisPlayerAdaptor::setRate(double rate)
{
    model().setRate(rate);
}

bool MprisPlayerAdaptor::shuffle() const
{
    return model().shuffle();
}

void MprisPlayerAdaptor::setShuffle(bool on)
{
    model().setShuffle(on);
}

QVariantMap MprisPlayerAdaptor::metadata() const
{
    return model().metadata();
}

double MprisPlayerAdaptor::volume() const
{
    return model().volume();
}

void MprisPlayerAdaptor::setVolume(double volume)
{
    model().setVolume(volume);
}

qlonglong MprisPlayerAdaptor::position() const
{
    return model().position();
}

double MprisPlayerAdaptor::minimumRate() const
{
    return MprisModel::minimumRate();
}

double MprisPlayerAdaptor::maximumRate() const
{
    return MprisModel::maximumRate();
}

bool MprisPlayerAdaptor::canGoNext() const
{
    return model().canGoNext();
}

bool MprisPlayerAdaptor::canGoPrevious() const
{
    return model().canGoPrevious();
}

bool MprisPlayerAdaptor::canPlay() const
{
    return model().canPlay();
}

bool MprisPlayerAdaptor::canPause() const
{
    return model().canPause();
}

bool MprisPlayerAdaptor::canSeek() const
{
    return model().canSeek();
}

void MprisPlayerAdaptor::Next()
{
    model().next();
}

void MprisPlayerAdaptor::Previous()
{
    model().previous();
}

void MprisPlayerAdaptor::Pause()
{
    model().pause();
}

void MprisPlayerAdaptor::PlayPause()
{
    model().playPause();
}

void MprisPlayerAdaptor::Stop()
{
    model().stop();
}

void MprisPlayerAdaptor::Play()
{
    model().play();
}

void MprisPlayerAdaptor::Seek(qlonglong offset)
{
    model().seek(offset);
}

void MprisPlayerAdaptor::SetPosition(const QDBusObjectPath &trackId, qlonglong position)
{
    model().setPosition(trackId.path(), position);
}

void MprisPlayerAdaptor::OpenUri(const QString &uri)
{
    if (const QString error = model().openUri(uri); !error.isEmpty() && m_service->calledFromDBus())
        m_service->sendErrorReply(QDBusError::InvalidArgs, error);
}

} // namespace quorvel
