#pragma once

#include <QObject>

class Context;

// The hour, minute and second boxes: digits and backspace only, and never three characters.
class TimeBoxKeys : public QObject {
    Q_OBJECT
public:
    TimeBoxKeys(Context& ctx, QObject* parent) : QObject(parent), m_ctx(ctx) {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Context& m_ctx;
};

// Boxes that are set with the mouse or the arrow keys only: every typed character is dropped.
class NoTypedKeys : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
