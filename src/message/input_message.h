#pragma once

#include <QList>
#include <QString>

#include <cstdint>
#include <functional>

class Context;

// The controls of the Input Message window that its procedures read and set.
struct MessageControls {
    QString input; // as a message is kept: line breaks are CR LF
    QString cancelButton = QStringLiteral("Abandon");
    bool nextMessageButtonVisible = false;
    bool messageNumberLabelVisible = false;
    QString messageNumberLabel;
};

// Where the window stood and how large its text was, as the settings file keeps them.
struct MessagePlacement {
    bool hasLocation = false;
    int32_t top = 0; // twips
    int32_t left = 0;
    bool hasFontSize = false;
    int32_t fontSize = 0;
};

// The Input Message window without its widgets. It finds the messages of a todayList row by the row's time,
// lets the user page through several, and puts a saved text where its event lives: into todayMessages for
// today's events and the rows of todayList, into the schedule file for another day.
class InputMessage {
public:
    explicit InputMessage(Context& ctx);

    // Whether the window is loaded; an opening while it is loaded keeps its text and fields.
    bool loaded() const { return m_loaded; }
    // The load steps: the window claims the front and picks up its stored place and text size.
    MessagePlacement load();
    // The opening after the window is shown: "" for the event just entered, "DoubleClick" for the
    // current row of todayList, whose messages are looked up.
    void openInputMessage(const QString& origin, MessageControls& c);
    // ">": the next of several messages of the row's time, round to the first.
    void nextMessage(MessageControls& c);
    // Save: keeps the text size, then stores the text. True when the window closes after it; false when the
    // text holds characters our files cannot, which a warning names, and the text stays in the box.
    bool save(const MessageControls& c, double fontSize);
    // Another window of ours took the focus: true when this one takes the front back (and beeps).
    bool deactivated();
    // Every way out: the place when the window is in its normal state, todayList back in view, the front
    // given up. The window is unloaded after it.
    void closing(bool normalState, double topTwips, double leftTwips);

    // Brings todayList back from under the hourglass. Unset, it asks the Alarm Set window, if there is one.
    std::function<void()> restoreTodayList;

    const QString& origin() const { return m_origin; }
    int16_t messageCount() const { return m_messageCount; }
    int16_t currentMessage() const { return m_currentMessage; }
    const QList<int16_t>& messageRows() const { return m_messageRows; }

private:
    bool hasCurrentTodayRow() const;
    QString currentTodayTime() const;
    void warnNothingSaved();

    Context& m_ctx;
    bool m_loaded = false;
    QString m_origin;
    int16_t m_messageCount = 0;
    int16_t m_currentMessage = -1;
    QList<int16_t> m_messageRows;
};
