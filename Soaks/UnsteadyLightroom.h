#pragma once

#include <QObject>
#include <QProcess>
#include <QRandomGenerator>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

#include <chrono>

namespace KelvaLR {

/// A headless stand-in that is never well for long: at random moments it is ended, killed, frozen, or its
/// port is taken for a while by a program that is no Lightroom.
class UnsteadyLightroom : public QObject
{
public:
    struct Counts
    {
        int starts = 0;
        int ended = 0;
        int killed = 0;
        int frozen = 0;  ///< for a moment that a command survives
        int hanging = 0; ///< for good, then killed
        int strangers = 0;

        bool operator==(const Counts &) const = default;
    };

    UnsteadyLightroom(QString program, QString photos, quint32 seed);
    ~UnsteadyLightroom() override;

    void start();
    /// Leaves it well from now on, and starts it when it is down.
    void calmDown();

    [[nodiscard]] bool isReady() const { return m_isReady; }

    [[nodiscard]] const Counts &counts() const { return m_counts; }

private:
    using milliseconds = std::chrono::milliseconds;

    void disturb();
    void freeze(milliseconds length);
    void hang();
    void goDown(milliseconds length);
    void letStrangersIn();
    void signal(int number) const;
    [[nodiscard]] milliseconds between(milliseconds least, milliseconds most);

    QString m_program;
    QString m_photos;
    QRandomGenerator m_random;
    QProcess m_process;
    QTcpServer m_stranger;
    QTimer m_next; ///< the next disturbance, or the end of this one
    bool m_isReady = false;
    bool m_isCalm = false;
    bool m_isHanging = false;
    Counts m_counts;
};

} // namespace KelvaLR
