#pragma once

#include <QString>

class Context;

// messageView and the caption of viewMessagesButton.
struct MessageView {
    bool visible = false;
    QString text;
    QString caption = QStringLiteral("View Messages");
};

// Toggles the view of today's alarms beside their messages: one line for each row of todayList.
void toggleMessageView(Context& ctx, MessageView& messageView);
// Appends the first unused message of this time and uses it up in shadowMessages.
void appendShadowMessage(Context& ctx, const QString& time, QString& messageView);
