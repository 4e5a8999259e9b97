#include "UnsteadyLightroom.h"

#include "Services/Lightroom/Bridge/BridgeEndpoint.h"

#include <csignal>
#include <utility>

namespace KelvaLR {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

UnsteadyLightroom::UnsteadyLightroom(QString program, QString photos, quint32 seed)
    : m_program(std::move(program))
    , m_photos(std::move(photos))
    , m_random(seed)
{
    m_next.setSingleShot(true);
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    connect(&m_process, &QProcess::readyRead, this, [this] {
        if (!m_isReady && m_process.readAll().contains("ready\n")) {
            m_isReady = true;
        }
    });
    connect(&m_process, &QProcess::finished, this, [this] { m_isReady = false; });
    connect(&m_stranger, &QTcpServer::newConnection, this, [this] {
        QTcpSocket *client = m_stranger.nextPendingConnection();
        connect(client, &QTcpSocket::disconnected, client, &QObject::deleteLater);
        switch (m_random.bounded(3)) {
        case 0:
            client->abort();
            break;
        case 1:
            client->write("HTTP/1.1 400 Bad Request\r\n\r\n");
            break;
        default:
            break; // listens and says nothing
        }
    });
}

UnsteadyLightroom::~UnsteadyLightroom()
{
    m_process.disconnect(this);
    m_process.kill();
    m_process.waitForFinished();
}

void UnsteadyLightroom::start()
{
    m_stranger.close();
    m_next.disconnect(this);
    if (m_process.state() == QProcess::NotRunning) {
        ++m_counts.starts;
        m_process.start(m_program, {u"--headless"_s, u"--photos"_s, m_photos});
    }
    if (!m_isCalm) {
        connect(&m_next, &QTimer::timeout, this, &UnsteadyLightroom::disturb);
        m_next.start(between(15s, 75s));
    }
}

void UnsteadyLightroom::calmDown()
{
    m_isCalm = true;
    m_next.disconnect(this);
    if (std::exchange(m_isHanging, false)) {
        signal(SIGKILL); // or it would do what was given up long ago
        m_isReady = false;
    }
    signal(SIGCONT);
    m_stranger.close();
    if (!m_isReady) {
        goDown(0ms); // it may still be ending
    }
}

void UnsteadyLightroom::disturb()
{
    m_next.disconnect(this);
    switch (m_random.bounded(5)) {
    case 0:
        ++m_counts.frozen;
        return freeze(between(500ms, 5s));
    case 1:
        ++m_counts.hanging;
        return hang();
    case 2:
        ++m_counts.ended;
        signal(SIGTERM);
        return goDown(between(0s, 15s));
    case 3:
        ++m_counts.killed;
        signal(SIGKILL);
        return goDown(between(0s, 15s));
    default:
        ++m_counts.strangers;
        signal(SIGKILL);
        return letStrangersIn();
    }
}

void UnsteadyLightroom::freeze(milliseconds length)
{
    signal(SIGSTOP);
    connect(&m_next, &QTimer::timeout, this, [this] {
        signal(SIGCONT);
        start();
    });
    m_next.start(length);
}

/// As a Lightroom behind a dialog that nobody answers: what it was told is taken, and never done.
void UnsteadyLightroom::hang()
{
    signal(SIGSTOP);
    m_isHanging = true;
    connect(&m_next, &QTimer::timeout, this, [this] {
        m_next.disconnect(this);
        m_isHanging = false;
        signal(SIGKILL);
        goDown(0ms);
    });
    m_next.start(between(9s, 20s));
}

void UnsteadyLightroom::goDown(milliseconds length)
{
    connect(&m_next, &QTimer::timeout, this, [this] {
        if (m_process.state() == QProcess::NotRunning) {
            return start();
        }
        m_next.start(100ms); // it takes its time to end
    });
    m_next.start(length);
}

void UnsteadyLightroom::letStrangersIn()
{
    connect(&m_next, &QTimer::timeout, this, [this] {
        if (m_process.state() == QProcess::NotRunning) {
            m_next.disconnect(this);
            m_stranger.listen(QHostAddress::LocalHost, BridgeEndpoint().port);
            return goDown(between(5s, 15s));
        }
        m_next.start(100ms);
    });
    m_next.start(100ms);
}

void UnsteadyLightroom::signal(int number) const
{
    if (m_process.processId() > 0) {
        ::kill(static_cast<pid_t>(m_process.processId()), number);
    }
}

std::chrono::milliseconds UnsteadyLightroom::between(milliseconds least, milliseconds most)
{
    return milliseconds(m_random.bounded(int(least.count()), int(most.count()) + 1));
}

} // namespace KelvaLR
