#include "Services/Assistant/HttpPost.h"

#include <QCoroNetworkReply>

#include <QIODevice>
#include <QNetworkReply>
#include <QTimer>

#include <algorithm>
#include <memory>

namespace KelvaLR {

namespace {

using Ending = HttpReply::Ending;

struct LaterDeleter
{
    void operator()(QNetworkReply *reply) const { reply->deleteLater(); }
};

using OwnedReply = std::unique_ptr<QNetworkReply, LaterDeleter>;

/// A body that is read once. When a server hangs up without an answer, the network layer would send the
/// request up to three times more, and a service may charge for each.
class OneTimeBody final : public QIODevice
{
public:
    explicit OneTimeBody(QByteArray bytes)
        : m_bytes(std::move(bytes))
    {
        open(ReadOnly | Unbuffered);
    }

    qint64 size() const override { return m_bytes.size(); }

    bool seek(qint64 position) override { return position >= pos() && QIODevice::seek(position); }

protected:
    qint64 readData(char *target, qint64 capacity) override
    {
        const qint64 count = std::min(capacity, m_bytes.size() - pos());
        std::copy_n(m_bytes.constData() + pos(), count, target);
        return count;
    }

    qint64 writeData(const char *, qint64) override { return -1; }

private:
    QByteArray m_bytes;
};

void restrict(QNetworkRequest &request)
{
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false); // one small request gains nothing
    request.setRawHeader("Connection",
                         "close"); // a kept connection that has died would cost the only attempt
    request.setRawHeader("Accept-Encoding", "identity"); // so that a small reply cannot unpack to a huge one
}

/// Aborts the reply when it takes too long or grows too large; says which of the two it was. The reply lives
/// on until the event loop turns again, so an abort may end the waiting coroutine from in here.
std::shared_ptr<const Ending> enforce(HttpLimits limits, QNetworkReply &reply)
{
    auto ending = std::make_shared<Ending>(Ending::received);
    const auto abort = [&reply, ending](Ending reason) {
        *ending = reason;
        reply.abort();
    };
    reply.setReadBufferSize(limits.replySize + 1);
    QObject::connect(&reply, &QNetworkReply::readyRead, &reply, [&reply, abort, limits] {
        if (reply.bytesAvailable() > limits.replySize) {
            abort(Ending::tooLarge);
        }
    });
    auto *deadline = new QTimer(&reply);
    deadline->setSingleShot(true);
    QObject::connect(deadline, &QTimer::timeout, &reply, [abort] { abort(Ending::timedOut); });
    deadline->start(limits.deadline);
    return ending;
}

/// Whether the server ended the connection, or spoke, without a line that HTTP knows.
bool isNoHttp(const QNetworkReply &reply, int status)
{
    return status == 0 &&
           (reply.error() == QNetworkReply::NoError || reply.error() == QNetworkReply::ProtocolFailure ||
            reply.error() == QNetworkReply::ContentReSendError);
}

} // namespace

QCoro::Task<HttpReply> postOverHttp(QNetworkAccessManager &network, QNetworkRequest request, QByteArray body,
                                    HttpLimits limits)
{
    restrict(request);
    auto *once = new OneTimeBody(body);
    const OwnedReply reply(network.post(request, once));
    once->setParent(reply.get()); // the network layer reads it for as long as the reply lives
    const std::shared_ptr<const Ending> ending = enforce(limits, *reply);
    co_await reply.get();

    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (*ending != Ending::received) {
        co_return HttpReply{*ending, status, {}, {}};
    }
    if (isNoHttp(*reply, status)) {
        co_return HttpReply{Ending::notHttp, status, {}, {}};
    }
    // To the network layer a status of 400 and more is an error, and some redirections are.
    if (reply->error() != QNetworkReply::NoError && status < 300) {
        co_return HttpReply{Ending::failed, status, {}, reply->errorString()};
    }
    co_return HttpReply{Ending::received, status, reply->readAll(), {}};
}

} // namespace KelvaLR
