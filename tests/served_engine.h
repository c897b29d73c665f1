#pragma once

#include "engine/command_client.h"
#include "engine/command_service.h"
#include "fakes.h"
#include "local_zone.h"
#include "sound/routed_notices.h"

#include <QJsonArray>

#include <gtest/gtest.h>

// The engine as the running program builds it over a fresh folder, its notices routed so that a command's
// warnings can be kept from the windows; requests reach it as the lines the command line sends.
struct ServedEngine {
    QTemporaryDir dir;
    FakeClock clock;
    RecordingNotices windows;
    RoutedNotices route{windows};
    RecordingSound sound;
    Context ctx{clock, route, sound};
    WindowlessAlarmSet alarmSet{ctx};
    command_service::WaitingAdds* waitingAdds = nullptr; // set: adds "--in" a while wait here

    ServedEngine() {
        ctx.setStartValues(dir.path());
        ctx.alarmSetUi = &alarmSet;
    }

    QJsonObject serve(const command_protocol::Request& request) {
        const QByteArray line = command_protocol::toLine(command_protocol::toJson(request));
        return command_protocol::fromLine(waitingAdds ? command_service::serve(ctx, route, line, *waitingAdds)
                                                      : command_service::serve(ctx, route, line));
    }
    // The request the words make, with a message given apart as a script passes it; words that make no request
    // fail the test.
    QJsonObject send(const QStringList& words, const QString& message = QString()) {
        const command_protocol::Parsed parsed = command_protocol::parse(words);
        EXPECT_TRUE(parsed.request) << qPrintable(words.join(' ')) << ": " << qPrintable(parsed.refusal);
        if (!parsed.request)
            return {};
        command_protocol::Request request = *parsed.request;
        if (!message.isNull())
            request.message = message;
        return serve(request);
    }
    QJsonObject send(const QString& words, const QString& message = QString()) {
        return send(words.split(' '), message);
    }
    QJsonArray events() { return send(QStringList{"list"}).value("events").toArray(); }
    QStringList listed() {
        QStringList lines;
        for (const QJsonValue& e : events())
            lines.append(command_protocol::eventLine(command_protocol::eventFromJson(e.toObject())));
        return lines;
    }
};
