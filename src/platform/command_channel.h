#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

#include <functional>

class QLocalServer;
class QLocalSocket;

// The running program's per-user local socket, beside its lock in the private runtime folder: one request line
// in, one answer line out, per connection.
namespace command_channel {

// Empty when there is no private runtime folder: then there is no channel either.
QString socketPath();

// One exchange with the running program. Connected is false when no one listens at the path.
struct Exchange {
    bool connected = false;
    QByteArray answer; // the answer line; empty when none came in time
};
Exchange exchange(const QString& path, const QByteArray& requestLine, int connectMs, int answerMs);

} // namespace command_channel

class CommandServer : public QObject {
public:
    // Gives the answer line for a request line.
    using Handler = std::function<QByteArray(const QByteArray&)>;

    explicit CommandServer(Handler handler, QObject* parent = nullptr);
    ~CommandServer() override;

    // Listens at the path, open to this user only; a socket left there by a dead copy is removed first (the
    // caller holds the lock, so no live copy listens there). False with the reason when it cannot.
    bool listen(const QString& path, QString& error);

private:
    void takeConnections();
    void readRequest(QLocalSocket* socket);

    Handler m_handler;
    QLocalServer* m_server;
};
