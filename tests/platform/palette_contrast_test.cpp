#include "alarmset/ui/alarm_set_host.h"
#include "alarmset/ui/alarm_set_window.h"
#include "alarmset/ui/picture_button.h"
#include "clock/ui/clock_text_label.h"
#include "clock/ui/desktop_clock.h"
#include "platform/contrast.h"
#include "settings/ui/settings_window.h"

#include "../clock/fake_screen.h"
#include "fakes.h"

#include <QApplication>
#include <QDir>
#include <QPushButton>
#include <QStyle>
#include <QStyleFactory>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

// The hand-drawn pictures and the clock's text, measured on the pixels they paint: every pixel a picture changes
// is compared with the pixel the same control shows without it. BELLWICK_SHOT_DIR=<folder> also saves the
// windows as drawn in each palette, to be looked at.

namespace {

// A dark colour scheme as desktops ship it.
QPalette darkPalette() {
    QPalette p;
    const QColor window(0x2a, 0x2e, 0x32), button(0x31, 0x36, 0x3b), text(0xfc, 0xfc, 0xfc);
    for (auto [role, colour] : {std::pair{QPalette::Window, window},
                                {QPalette::Base, QColor(0x1b, 0x1e, 0x20)},
                                {QPalette::AlternateBase, QColor(0x23, 0x26, 0x29)},
                                {QPalette::Button, button},
                                {QPalette::BrightText, QColor(Qt::white)},
                                {QPalette::Light, button.lighter(150)},
                                {QPalette::Midlight, button.lighter(125)},
                                {QPalette::Mid, button.darker(120)},
                                {QPalette::Dark, button.darker(150)},
                                {QPalette::Shadow, QColor(Qt::black)},
                                {QPalette::Highlight, QColor(0x3d, 0xae, 0xe9)},
                                {QPalette::ToolTipBase, window},
                                {QPalette::PlaceholderText, QColor(0xa1, 0xa9, 0xb1)}})
        p.setColor(role, colour);
    for (auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        p.setColor(role, text);
        p.setColor(QPalette::Disabled, role, QColor(0x6e, 0x71, 0x75));
    }
    p.setColor(QPalette::HighlightedText, text);
    p.setColor(QPalette::ToolTipText, text);
    return p;
}

QImage image(QWidget* w) {
    return w->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

// The contrast that the strongest quarter of the changed pixels reach: in strokes a few pixels wide most pixels
// are edges that blend into the background. 0 when the picture changed nothing.
double pictureContrast(const QImage& drawn, const QImage& bare, const QRect& area) {
    std::vector<double> ratios;
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            if (drawn.pixel(x, y) != bare.pixel(x, y))
                ratios.push_back(contrast::ratio(QColor(drawn.pixel(x, y)), QColor(bare.pixel(x, y))));
    if (ratios.empty())
        return 0;
    std::sort(ratios.begin(), ratios.end());
    return ratios[ratios.size() * 3 / 4];
}

double buttonContrast(PictureButton* button, QRect area = {}) {
    PictureButton bare([](QPainter&, const QRectF&) {}, QString(), button->parentWidget());
    bare.setGeometry(button->geometry());
    const QImage drawn = image(button);
    return pictureContrast(drawn, image(&bare), area.isNull() ? drawn.rect() : area);
}

struct Palettes : ::testing::TestWithParam<bool> {
    QPalette saved = QApplication::palette();
    std::unique_ptr<QStyle> fusion{QStyleFactory::create(QStringLiteral("Fusion"))};
    Palettes() { QApplication::setPalette(dark() ? darkPalette() : fusion->standardPalette()); }
    ~Palettes() override { QApplication::setPalette(saved); }
    bool dark() const { return GetParam(); }
    void styled(QWidget* w) const {
        w->setStyle(fusion.get());
        for (QWidget* child : w->findChildren<QWidget*>())
            child->setStyle(fusion.get());
    }
    void shoot(QWidget* w, const QString& name) const {
        const QString folder = qEnvironmentVariable("BELLWICK_SHOT_DIR");
        if (!folder.isEmpty() && QDir().mkpath(folder))
            w->grab().save(folder + QLatin1Char('/') + name + (dark() ? "-dark.png" : "-light.png"));
    }
};

} // namespace

TEST_P(Palettes, AlarmSetPicturesStandOutFromTheirButtons) {
    EngineFixture engine;
    AlarmSetHost host{engine.ctx};
    engine.ctx.alarmSetUi = &host;
    engine.ctx.touchAlarmSet();
    AlarmSetWindow* f = host.form();
    styled(f);
    shoot(f, QStringLiteral("alarm-set"));
    const std::pair<PictureButton*, const char*> graphics[] = {
        {f->upButton, "up arrow"},          {f->downButton, "down arrow"},
        {f->deleteButton, "scissors"},      {f->deleteAllButton, "two scissors"},
        {f->playSongButton, "play"},        {f->minimiseButton, "minimise"},
        {f->saveFileButton, "floppy disk"}, {f->loadButton, "folder"}};
    for (const auto& [button, name] : graphics)
        EXPECT_GE(buttonContrast(button), contrast::kGraphics) << name;
    // The word Add, left of its pencil, is text.
    const QRect word(0, 0, f->withMessageButton->width() * 6 / 10, f->withMessageButton->height());
    EXPECT_GE(buttonContrast(f->withMessageButton, word), contrast::kText) << "Add";
    engine.ctx.alarmSetUi = nullptr;
}

TEST_P(Palettes, SettingsPlaySignStandsOutFromItsButton) {
    EngineFixture engine;
    SettingsWindow form(engine.ctx);
    styled(&form);
    shoot(&form, QStringLiteral("settings"));
    auto* play = form.findChild<QPushButton*>(QStringLiteral("testSpeakerButton"));
    ASSERT_NE(play, nullptr);
    const QImage drawn = image(play);
    play->setIcon(QIcon());
    EXPECT_GE(pictureContrast(drawn, image(play), drawn.rect()), contrast::kGraphics);
}

TEST_P(Palettes, ClockTimeIsReadableOnItsPill) {
    EngineFixture engine;
    engine.clock.set(2002, 5, 1, 20, 0, 0);
    FakeScreen screen(96);
    DockingHandler dock(screen);
    DesktopClock clock(engine.ctx, screen, dock, nullptr, true);
    styled(&clock);
    clock.onTick();
    ASSERT_FALSE(clock.timeLabel->text().isEmpty());
    shoot(&clock, QStringLiteral("clock"));
    const QImage drawn = image(&clock);
    clock.timeLabel->setText(QString());
    EXPECT_GE(pictureContrast(drawn, image(&clock), drawn.rect()), contrast::kText);
}

INSTANTIATE_TEST_SUITE_P(LightAndDark, Palettes, ::testing::Bool(),
                         [](const auto& info) { return info.param ? "Dark" : "Light"; });
