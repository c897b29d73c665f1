#include "platform/display_choice.h"

#include <gtest/gtest.h>

namespace {

QProcessEnvironment environment(const std::vector<std::pair<const char*, const char*>>& values) {
    QProcessEnvironment env;
    for (const auto& [name, value] : values)
        env.insert(QString::fromLatin1(name), QString::fromLatin1(value));
    return env;
}

TEST(DisplayChoice, XWaylandIsChosenWithWaylandAsTheWayOutWhenItLeadsNowhere) {
    const std::pair<std::vector<std::pair<const char*, const char*>>, const char*> sessions[] = {
        {{{"WAYLAND_DISPLAY", "wayland-0"}, {"DISPLAY", ":0"}}, "xcb;wayland"},
        {{{"XDG_SESSION_TYPE", "wayland"}, {"DISPLAY", ":1"}}, "xcb;wayland"}, // Wayland told by its type alone
        // Plain X11 and pure Wayland: Qt's own choice is already the right one.
        {{{"DISPLAY", ":0"}, {"XDG_SESSION_TYPE", "x11"}}, ""},
        {{{"WAYLAND_DISPLAY", "wayland-0"}, {"DISPLAY", ""}}, ""},
        {{}, ""},
    };
    for (const auto& [env, ask] : sessions)
        EXPECT_EQ(display_choice::platformToAsk(environment(env), {}), QString::fromLatin1(ask)) << ask;
}

TEST(DisplayChoice, TheUsersOwnChoiceStands) {
    const auto both = environment({{"WAYLAND_DISPLAY", "wayland-0"}, {"DISPLAY", ":0"}});
    for (const QStringList& arguments :
         {QStringList{"-platform", "wayland"}, QStringList{"-style", "fusion", "--platform", "wayland"},
          QStringList{"-platform=wayland"}, QStringList{"--platform=offscreen"}})
        EXPECT_EQ(display_choice::platformToAsk(both, arguments), QString()) << arguments.join(u' ').toStdString();
    auto chosen = both;
    chosen.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("wayland"));
    EXPECT_EQ(display_choice::platformToAsk(chosen, {}), QString());
    // Set but empty is no choice, as for Qt; an option that only looks alike is none either.
    chosen.insert(QStringLiteral("QT_QPA_PLATFORM"), QString());
    EXPECT_EQ(display_choice::platformToAsk(chosen, {QStringLiteral("-platformtheme"), QStringLiteral("gtk3")}),
              QStringLiteral("xcb;wayland"));
}

} // namespace
