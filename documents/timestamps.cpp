#include "timestamps.h"

#include "problem.h"

#include <openssl/http.h>
#include <openssl/rand.h>
#include <openssl/ssl.h>

#include <ctime>

namespace documents {

namespace {

using RequestOwner = std::unique_ptr<TS_REQ, Release<TS_REQ_free>>;
using ResponseOwner = std::unique_ptr<TS_RESP, Release<TS_RESP_free>>;
using TokenOwner = std::unique_ptr<PKCS7, Release<PKCS7_free>>;
using TokenInfoOwner = std::unique_ptr<TS_TST_INFO, Release<TS_TST_INFO_free>>;
using VerifyOwner = std::unique_ptr<TS_VERIFY_CTX, Release<TS_VERIFY_CTX_free>>;
using TlsOwner = std::unique_ptr<SSL_CTX, Release<SSL_CTX_free>>;

constexpr int kSeconds = 60;
constexpr size_t kMostAnswer = 1 << 16;

Problem serverProblem(const QString &url, const QString &message)
{
    const QString reason = opensslReason();
    return {Problem::Kind::Server,
        QString("the time-stamp server %1 %2%3").arg(url, message, reason.isEmpty() ? "" : " (" + reason + ")")};
}

RequestOwner requestFor(const QByteArray &bytes)
{
    Digest digest;
    digest.add(bytes.constData(), bytes.size());
    QByteArray imprint = digest.result();
    RequestOwner request(TS_REQ_new());
    const std::unique_ptr<TS_MSG_IMPRINT, Release<TS_MSG_IMPRINT_free>> wrapped(TS_MSG_IMPRINT_new());
    const std::unique_ptr<X509_ALGOR, Release<X509_ALGOR_free>> algorithm(X509_ALGOR_new());
    X509_ALGOR_set_md(algorithm.get(), EVP_sha256());
    TS_MSG_IMPRINT_set_algo(wrapped.get(), algorithm.get());
    TS_MSG_IMPRINT_set_msg(
        wrapped.get(), reinterpret_cast<unsigned char *>(imprint.data()), static_cast<int>(imprint.size()));
    uint64_t number = 0;
    RAND_bytes(reinterpret_cast<unsigned char *>(&number), sizeof number);
    const std::unique_ptr<ASN1_INTEGER, Release<ASN1_INTEGER_free>> nonce(ASN1_INTEGER_new());
    ASN1_INTEGER_set_uint64(nonce.get(), number);
    TS_REQ_set_version(request.get(), 1);
    TS_REQ_set_msg_imprint(request.get(), wrapped.get());
    TS_REQ_set_nonce(request.get(), nonce.get());
    TS_REQ_set_cert_req(request.get(), 1);
    return request;
}

struct Tls
{
    TlsOwner context;
    std::string host;
};

/// Puts TLS between the connection and HTTP, and takes it away at the end.
BIO *tlsOver(BIO *connection, void *argument, int connects, int usesTls)
{
    const Tls &tls = *static_cast<Tls *>(argument);
    if (connects == 0) {
        BIO *const below = usesTls == 0 ? nullptr : BIO_pop(connection);
        if (below == nullptr)
            return connection;
        BIO_free(connection);
        return below;
    }
    if (usesTls == 0)
        return connection;
    BIO *const layer = BIO_new_ssl(tls.context.get(), 1);
    SSL *session = nullptr;
    if (layer == nullptr || BIO_get_ssl(layer, &session) != 1)
        return nullptr;
    SSL_set_tlsext_host_name(session, tls.host.c_str());
    SSL_set1_host(session, tls.host.c_str());
    return BIO_push(layer, connection);
}

struct Address
{
    std::string host, port, path;
    bool isTls = false;
};

Address addressOf(const QString &url)
{
    char *host = nullptr, *port = nullptr, *path = nullptr;
    int isTls = 0;
    const bool isUrl = (url.startsWith("http://") || url.startsWith("https://"))
        && OSSL_HTTP_parse_url(
               url.toUtf8().constData(), &isTls, nullptr, &host, &port, nullptr, &path, nullptr, nullptr)
            == 1;
    Address address;
    if (isUrl)
        address = {host, port, path, isTls == 1};
    OPENSSL_free(host);
    OPENSSL_free(port);
    OPENSSL_free(path);
    if (!isUrl)
        throw Problem{
            Problem::Kind::Request, QString("\"%1\" is no http or https address of a time-stamp server").arg(url)};
    return address;
}

/// The time until which is waited, with naps between which the caller may end it.
class Patience
{
public:
    explicit Patience(const std::function<void()> &whileWaiting)
        : m_whileWaiting(whileWaiting)
    {
    }

    /// Waits until the connection has something, or a nap is over. @return false when the time is over
    bool wait(BIO *connection) const
    {
        constexpr unsigned int kNap = 100; // milliseconds, where there is no socket to wait at
        m_whileWaiting();
        if (std::time(nullptr) > m_end)
            return false;
        BIO_wait(connection, std::min(m_end, std::time(nullptr) + 1), kNap);
        return true;
    }

private:
    const std::function<void()> &m_whileWaiting;
    const time_t m_end = std::time(nullptr) + kSeconds;
};

/// A connection, or null. Not by OpenSSL itself, which tries again and again when nobody listens.
BioOwner connected(const Address &address, const Patience &patience)
{
    BioOwner connection(BIO_new_connect(address.host.c_str()));
    BIO_set_conn_port(connection.get(), address.port.c_str());
    BIO_set_nbio(connection.get(), 1);
    while (BIO_do_connect(connection.get()) <= 0) {
        if (!BIO_should_retry(connection.get()) || !patience.wait(connection.get()))
            return nullptr;
    }
    return connection;
}

void endExchange(OSSL_HTTP_REQ_CTX *exchange)
{
    OSSL_HTTP_close(exchange, 0);
}

using ExchangeOwner = std::unique_ptr<OSSL_HTTP_REQ_CTX, Release<endExchange>>;

/// The answer, or null.
BioOwner answerOf(const Address &address, BIO *request, const std::function<void()> &whileWaiting)
{
    const Patience patience(whileWaiting);
    Tls tls{TlsOwner(SSL_CTX_new(TLS_client_method())), address.host};
    SSL_CTX_set_default_verify_paths(tls.context.get());
    SSL_CTX_set_verify(tls.context.get(), SSL_VERIFY_PEER, nullptr);
    const int usesTls = address.isTls ? 1 : 0;
    BioOwner connection;
    if (OSSL_HTTP_adapt_proxy(nullptr, nullptr, address.host.c_str(), usesTls) == nullptr) {
        connection = connected(address, patience);
        if (connection == nullptr)
            return nullptr;
    }
    const ExchangeOwner exchange(OSSL_HTTP_open(address.host.c_str(), address.port.c_str(), nullptr, nullptr, usesTls,
        connection.get(), nullptr, tlsOver, &tls, 0, kSeconds));
    if (exchange == nullptr
        || OSSL_HTTP_set1_request(exchange.get(), address.path.c_str(), nullptr, "application/timestamp-query", request,
               "application/timestamp-reply", 1, kMostAnswer, kSeconds, 0)
            != 1)
        return nullptr;
    int state = OSSL_HTTP_REQ_CTX_nbio(exchange.get());
    while (state == -1 && patience.wait(connection.get())) // -1: not done
        state = OSSL_HTTP_REQ_CTX_nbio(exchange.get());
    BIO *const answer = state == 1 ? OSSL_HTTP_REQ_CTX_get0_mem_bio(exchange.get()) : nullptr;
    if (answer != nullptr)
        BIO_up_ref(answer);
    return BioOwner(answer);
}

bool isSignedByItsCertificate(PKCS7 *token)
{
    const BioOwner content(BIO_new(BIO_s_mem()));
    return PKCS7_verify(token, nullptr, nullptr, nullptr, content.get(), PKCS7_NOVERIFY) == 1;
}

bool isTrustedToken(PKCS7 *token, X509_STORE *trusted)
{
    const VerifyOwner context(TS_VERIFY_CTX_new());
    X509_STORE_up_ref(trusted);
    TS_VERIFY_CTX_set_store(context.get(), trusted);
    TS_VERIFY_CTX_set_flags(context.get(), TS_VFY_VERSION | TS_VFY_SIGNATURE);
    return TS_RESP_verify_token(context.get(), token) == 1;
}

QDateTime timeOf(const ASN1_GENERALIZEDTIME *time)
{
    struct tm parts = {};
    if (time == nullptr || ASN1_TIME_to_tm(time, &parts) != 1)
        return {};
    return {QDate(parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday),
        QTime(parts.tm_hour, parts.tm_min, parts.tm_sec), Qt::UTC};
}

QString authorityOf(PKCS7 *token)
{
    STACK_OF(X509) *const signers = PKCS7_get0_signers(token, nullptr, 0);
    const QString name =
        sk_X509_num(signers) > 0 ? nameOf(X509_get_subject_name(sk_X509_value(signers, 0))) : QString();
    sk_X509_free(signers);
    return name;
}

} // namespace

QByteArray fetchTimestamp(const QString &url, const QByteArray &bytes, const std::function<void()> &whileWaiting)
{
    const Address address = addressOf(url);
    const RequestOwner request = requestFor(bytes);
    const BioOwner body(BIO_new(BIO_s_mem()));
    i2d_TS_REQ_bio(body.get(), request.get());
    opensslReason();
    const BioOwner answer = answerOf(address, body.get(), whileWaiting);
    if (answer == nullptr)
        throw serverProblem(url, "gives no time stamp");
    const ResponseOwner response(d2i_TS_RESP_bio(answer.get(), nullptr));
    if (response == nullptr)
        throw serverProblem(url, "answers something that is no time stamp");
    const VerifyOwner context(TS_REQ_to_TS_VERIFY_CTX(request.get(), nullptr));
    if (context == nullptr || TS_RESP_verify_response(context.get(), response.get()) != 1)
        throw serverProblem(url, "refuses, or gives another time stamp than was asked for");
    if (!isSignedByItsCertificate(TS_RESP_get_token(response.get())))
        throw serverProblem(url, "gives a time stamp that is not signed right");
    return derOf(TS_RESP_get_token(response.get()), i2d_PKCS7);
}

TimestampReport checkTimestamp(
    const QByteArray &token, const std::function<QByteArray(const EVP_MD *)> &digestOfBytes, X509_STORE *trusted)
{
    TimestampReport report;
    const auto *place = reinterpret_cast<const unsigned char *>(token.constData());
    const TokenOwner message(d2i_PKCS7(nullptr, &place, token.size()));
    const TokenInfoOwner info(message == nullptr ? nullptr : PKCS7_to_TS_TST_INFO(message.get()));
    if (info != nullptr) {
        TS_MSG_IMPRINT *const imprint = TS_TST_INFO_get_msg_imprint(info.get());
        const ASN1_OBJECT *kind = nullptr;
        X509_ALGOR_get0(&kind, nullptr, nullptr, TS_MSG_IMPRINT_get_algo(imprint));
        const EVP_MD *const digestKind = EVP_get_digestbyobj(kind);
        const ASN1_OCTET_STRING *const stamped = TS_MSG_IMPRINT_get_msg(imprint);
        const QByteArray expected(
            reinterpret_cast<const char *>(ASN1_STRING_get0_data(stamped)), ASN1_STRING_length(stamped));
        report.time = timeOf(TS_TST_INFO_get_time(info.get()));
        report.authority = authorityOf(message.get());
        report.isIntact =
            digestKind != nullptr && digestOfBytes(digestKind) == expected && isSignedByItsCertificate(message.get());
        report.isWeak = isWeakDigest(digestKind);
        report.isTrusted = report.isIntact && !report.isWeak && isTrustedToken(message.get(), trusted);
    }
    opensslReason();
    return report;
}

} // namespace documents
