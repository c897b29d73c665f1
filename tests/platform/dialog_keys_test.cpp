#include "platform/ui/dialog_keys.h"
#include "platform/ui/window_roles.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <gtest/gtest.h>

TEST(DialogKeys, EscapeCancelsAndReturnPressesTheFocusedButtonOnly) {
    const struct {
        const char* what;
        int focus; // 0 the text box, 1 the other button, 2 the check box, 3 the cancel button
        int key;
        Qt::KeyboardModifiers modifiers;
        int cancelClicks;
        int otherClicks;
    } cases[] = {
        {"Escape in the text box", 0, Qt::Key_Escape, Qt::NoModifier, 1, 0},
        {"Escape on the other button", 1, Qt::Key_Escape, Qt::NoModifier, 1, 0},
        {"Return on the other button", 1, Qt::Key_Return, Qt::NoModifier, 0, 1},
        {"Enter on the cancel button", 3, Qt::Key_Enter, Qt::KeypadModifier, 1, 0},
        {"Return on the check box", 2, Qt::Key_Return, Qt::NoModifier, 0, 0},
        {"Return in the text box", 0, Qt::Key_Return, Qt::NoModifier, 0, 0},
        {"Shift+Escape", 1, Qt::Key_Escape, Qt::ShiftModifier, 0, 0},
    };
    for (const auto& c : cases) {
        QWidget window(nullptr, Qt::Dialog);
        auto* text = new QLineEdit(&window);
        auto* other = new QPushButton(QStringLiteral("Other"), &window);
        auto* box = new QCheckBox(QStringLiteral("Box"), &window);
        auto* cancel = new QPushButton(QStringLiteral("Cancel"), &window);
        for (QPushButton* b : {other, cancel})
            b->setAutoDefault(false);
        new DialogKeys(&window, cancel);
        int cancelClicks = 0, otherClicks = 0;
        QObject::connect(cancel, &QPushButton::clicked, [&] { ++cancelClicks; });
        QObject::connect(other, &QPushButton::clicked, [&] { ++otherClicks; });
        window.show();
        QWidget* focus[] = {text, other, box, cancel};
        focus[c.focus]->setFocus();
        QKeyEvent key(QEvent::KeyPress, c.key, c.modifiers);
        QApplication::sendEvent(focus[c.focus], &key);
        EXPECT_EQ(std::pair(cancelClicks, otherClicks), std::pair(c.cancelClicks, c.otherClicks)) << c.what;
        EXPECT_FALSE(box->isChecked()) << c.what;
    }
}

// The clock's text, read as it changes, is checked on the accessibility bus in desktop_no_tray.
TEST(WindowRoles, PlainWindowsAreDialogsOrFrames) {
    window_roles::install();
    QWidget dialog(nullptr, Qt::Dialog);
    QWidget frameless(nullptr, Qt::Tool | Qt::FramelessWindowHint);
    QDialog real;
    QWidget child(&dialog);
    QMenu menu;
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&dialog)->role(), QAccessible::Dialog);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&frameless)->role(), QAccessible::Window);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&real)->role(), QAccessible::Dialog);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&child)->role(), QAccessible::Client);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&menu)->role(), QAccessible::PopupMenu);
}
