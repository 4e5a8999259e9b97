#pragma once

#include <QByteArray>
#include <QCoroTask>
#include <QNetworkAccessManager>
#include <QNetworkRequest>

#include <chrono>
#include <optional>

namespace KelvaLR {

/// What may be spent on one request.
struct HttpLimits
{
    std::chrono::milliseconds deadline; ///< from the call to the last byte of the reply
    qint64 replySize;                   ///< bytes of the reply's body
};

/// How a request ended.
struct HttpReply
{
    enum class Ending { received, timedOut, tooLarge, notHttp, failed };

    Ending ending = Ending::received;
    int status = 0;  ///< 0 where no status line came
    QByteArray body; ///< the whole body when received
    QString failure; ///< the network's own description when failed

    bool operator==(const HttpReply &) const = default;
};

/// Posts a body once and gathers the reply, without blocking the thread. Nothing is sent again and no
/// redirection is followed, so the request's headers reach nobody else: its status is the reply. Aborting the
/// manager's replies ends the task at once.
QCoro::Task<HttpReply> postOverHttp(QNetworkAccessManager &network, QNetworkRequest request, QByteArray body,
                                    HttpLimits limits);

} // namespace KelvaLR
