#include "platform/command_channel.h"

#include "platform/runtime_folder.h"

#include <QDeadlineTimer>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTimer>

namespace {
// A request is a short line; anything longer is no client of ours.
constexpr qsizetype kMostRequestBytes = 64 * 1024;
// A client that does not say its request is let go.
constexpr int kIdleMs = 10000;
} // namespace

namespace command_channel {

QString socketPath() {
    const QString folder = runtime_folder::path();
    return folder.isEmpty() ? QString() : folder + QStringLiteral("bellwick.socket");
}

Exchange exchange(const QString& path, const QByteArray& requestLine, int connectMs, int answerMs) {
    Exchange result;
    QLocalSocket socket;
    socket.connectToServer(path);
    if (!socket.waitForConnected(connectMs))
        return result;
    result.connected = true;
    socket.write(requestLine);
    QDeadlineTimer deadline(answerMs);
    QByteArray received;
    while (!received.contains('\n') && received.size() <= kMostRequestBytes * 16) {
        if (socket.bytesAvailable() == 0 && !socket.waitForReadyRead(static_cast<int>(deadline.remainingTime())))
            break;
        received += socket.readAll();
    }
    const qsizetype end = received.indexOf('\n');
    if (end >= 0)
        result.answer = received.left(end + 1);
    socket.abort();
    return result;
}

} // namespace command_channel

CommandServer::CommandServer(Handler handler, QObject* parent)
    : QObject(parent), m_handler(std::move(handler)), m_server(new QLocalServer(this)) {
    m_server->setSocketOptions(QLocalServer::UserAccessOption);
    connect(m_server, &QLocalServer::newConnection, this, &CommandServer::takeConnections);
}

CommandServer::~CommandServer() = default;

bool CommandServer::listen(const QString& path, QString& error) {
    if (path.isEmpty()) {
        error = QStringLiteral("no private runtime folder");
        return false;
    }
    QLocalServer::removeServer(path);
    if (!m_server->listen(path)) {
        error = m_server->errorString();
        return false;
    }
    return true;
}

void CommandServer::takeConnections() {
    while (QLocalSocket* socket = m_server->nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] { readRequest(socket); });
        QTimer::singleShot(kIdleMs, socket, [socket] {
            socket->abort();
            socket->deleteLater();
        });
    }
}

void CommandServer::readRequest(QLocalSocket* socket) {
    if (!socket->canReadLine()) {
        if (socket->bytesAvailable() > kMostRequestBytes) {
            socket->abort();
            socket->deleteLater();
        }
        return;
    }
    const QByteArray request = socket->readLine(kMostRequestBytes + 1);
    disconnect(socket, &QLocalSocket::readyRead, this, nullptr);
    socket->write(m_handler(request));
    socket->disconnectFromServer(); // after the answer is written
}
