#pragma once

#include <QString>

class Context;

// txtViewM and the caption of cmdViewM.
struct MessageView {
    bool visible = false;
    QString text;
    QString caption = QStringLiteral("View Messages");
};

// Toggles the view of today's alarms beside their messages: one line for each row of lstData.
void ViewMClick(Context& ctx, MessageView& txtViewM);
// Appends the first unused message of this time and uses it up in lstShadowMessage.
void AppendShadowMessage(Context& ctx, const QString& time, QString& txtViewM);
