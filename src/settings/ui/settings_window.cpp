#include "settings/ui/settings_window.h"

#include "engine/context.h"
#include "platform/contrast.h"
#include "platform/ui/dialog_keys.h"
#include "platform/ui/fitted_font.h"
#include "platform/ui/window_twips.h"
#include "settings/settings_options.h"
#include "settings/ui/caption_frame.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>

using window_twips::place;

namespace {
// A bare check box on a 132 x 180 twips spot; grown around its centre when the style's box is larger.
QCheckBox* bareBox(QWidget* parent, const QString& name, double left, double top) {
    auto* box = new QCheckBox(parent);
    box->setObjectName(name);
    place(box, left, top, 132, 180);
    const QSize hint = box->sizeHint().expandedTo(box->size());
    const QPoint centre = box->geometry().center();
    box->setGeometry(QRect(QPoint(0, 0), hint).translated(centre - QPoint(hint.width() / 2, hint.height() / 2)));
    return box;
}

// The label that bears a box's text, 240 twips right of the box, as wide as its container allows.
// Only labels with room for two lines wrap; the others are cut at the right, never half a line at the bottom.
QLabel* boxLabel(QWidget* parent, const QString& name, const QString& text, double boxLeft, double boxTop,
                 double height) {
    auto* label = new QLabel(text, parent);
    label->setObjectName(name);
    label->setWordWrap(height >= 480);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    const double left = boxLeft + 240;
    place(label, left, boxTop - 15, 5052 - left - 60, height);
    return label;
}

CaptionFrame* frame(QWidget* parent, const QString& name, const QString& title, double top, double height) {
    auto* box = new CaptionFrame(title, parent);
    box->setObjectName(name);
    place(box, 120, top, 5052, height);
    return box;
}

QPushButton* button(QWidget* parent, const QString& name, const QString& text) {
    auto* b = new QPushButton(text, parent);
    b->setObjectName(name);
    b->setAutoDefault(false);
    return b;
}

// Our play sign: a triangle pointing right.
QIcon playIcon(int size, const QColor& colour, qreal ratio) {
    QPixmap pixmap(QSize(size, size) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    p.setBrush(colour);
    const double s = size;
    p.drawPolygon(QPolygonF({QPointF(s * 0.25, s * 0.15), QPointF(s * 0.85, s * 0.5), QPointF(s * 0.25, s * 0.85)}));
    return QIcon(pixmap);
}
} // namespace

SettingsWindow::SettingsWindow(Context& ctx, QWidget* parent) : QWidget(parent, Qt::Window), m_ctx(ctx) {
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("SettingsWindow"));
    setWindowTitle(QStringLiteral("Settings"));
    window_twips::sizeAndCentre(this, 6216, 5124);
    // The layout is measured for an 8-point face of Arial's widths; wider or larger desktop faces would push
    // captions out of their frames.
    QFont designFont = window_twips::designFont(font());
    setFont(designFont);

    optionsFrame = frame(this, QStringLiteral("optionsFrame"), QString(), 0, 1812);
    soundOnBox = bareBox(optionsFrame, QStringLiteral("soundOnBox"), 120, 240);
    soundOnLabel = boxLabel(optionsFrame, QStringLiteral("soundOnLabel"), QStringLiteral("Sound on"), 120, 240, 300);
    errorPopupsBox = bareBox(optionsFrame, QStringLiteral("errorPopupsBox"), 120, 600);
    errorPopupsLabel = boxLabel(optionsFrame, QStringLiteral("errorPopupsLabel"),
                                QStringLiteral("Show error message if sound cannot be played"), 120, 600, 300);
    autoLoadBox = bareBox(optionsFrame, QStringLiteral("autoLoadBox"), 120, 960);
    autoLoadLabel = boxLabel(optionsFrame, QStringLiteral("autoLoadLabel"),
                             QStringLiteral("Automatically load alarm events when Bellwick starts"), 120, 960, 480);
    noSecondBox = bareBox(optionsFrame, QStringLiteral("noSecondBox"), 120, 1440);
    noSecondLabel = boxLabel(optionsFrame, QStringLiteral("noSecondLabel"), QStringLiteral("Don't compare with second"),
                             120, 1440, 300);

    speakerFrame = frame(this, QStringLiteral("speakerFrame"), QStringLiteral("Internal Speaker"), 1920, 1212);
    internalSpeakerBox = bareBox(speakerFrame, QStringLiteral("internalSpeakerBox"), 120, 360);
    internalSpeakerLabel = boxLabel(speakerFrame, QStringLiteral("internalSpeakerLabel"),
                                    QStringLiteral("Use internal speaker instead of wave. (A necessary DLL file is "
                                                   "needed , refer to trouble shooting in help.)"),
                                    120, 360, 480);
    speakerInsteadOfMidiBox = bareBox(speakerFrame, QStringLiteral("speakerInsteadOfMidiBox"), 120, 840);
    speakerInsteadOfMidiLabel =
        boxLabel(speakerFrame, QStringLiteral("speakerInsteadOfMidiLabel"),
                 QStringLiteral("When MCI is busy, use internal speaker instead of midi sound"), 120, 840, 300);

    fontFrame = frame(this, QStringLiteral("fontFrame"),
                      QStringLiteral("Font (it will take effect when Bellwick starts next time)"), 3240, 1332);
    const QString fontCaptions[3] = {QStringLiteral("Use Arial font"), QStringLiteral("Enlarge"),
                                     QStringLiteral("Normal")};
    for (int i = 0; i < 3; ++i) {
        fontButtons[i] = new QRadioButton(fontCaptions[i], fontFrame);
        fontButtons[i]->setObjectName(QStringLiteral("fontButtons%1").arg(i + 1));
        place(fontButtons[i], 120, 240 + 360 * i, 3600, 300);
        connect(fontButtons[i], &QRadioButton::clicked, this,
                [this, i] { SettingsOptions(m_ctx).setFontChoice(i + 1); });
    }

    autostartFrame = frame(this, QStringLiteral("autostartFrame"), QStringLiteral("Load Me"), 0, 2172);
    autostartLabel = new QLabel(autostartFrame);
    autostartLabel->setObjectName(QStringLiteral("autostartLabel"));
    autostartLabel->setWordWrap(true);
    autostartLabel->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    place(autostartLabel, 480, 240, 4452, 780);
    autostartOnButton =
        button(autostartFrame, QStringLiteral("autostartOnButton"), QStringLiteral("Run Bellwick when Windows starts"));
    place(autostartOnButton, 480, 1080, 4092, 372);
    autostartOffButton = button(autostartFrame, QStringLiteral("autostartOffButton"),
                                QStringLiteral("Don't run Bellwick when Windows starts"));
    place(autostartOffButton, 480, 1560, 4092, 372);

    nextPageButton = button(this, QStringLiteral("nextPageButton"), QStringLiteral(">"));
    place(nextPageButton, 5400, 120, 492, 252);
    closeButton = button(this, QStringLiteral("closeButton"), QStringLiteral("Close"));
    place(closeButton, 5280, 4560, 732, 372);
    testLabel = new QLabel(QStringLiteral("test internal speaker"), this);
    testLabel->setObjectName(QStringLiteral("testLabel"));
    place(testLabel, 120, 4800, 1812, 252);
    testSpeakerButton = button(this, QStringLiteral("testSpeakerButton"), QString());
    place(testSpeakerButton, 2040, 4800, 252, 252);
    // Our green, unless it would fade into the button; styles shade a button away from the palette's colour, so
    // the sign aims well above the minimum.
    const QPalette& buttonColours = testSpeakerButton->palette();
    const QColor playColour = contrast::readable(QColor(0x1B, 0x7A, 0x2E), buttonColours.color(QPalette::Button),
                                                 contrast::kGraphics * 1.5, buttonColours.color(QPalette::ButtonText));
    testSpeakerButton->setIcon(playIcon(testSpeakerButton->height(), playColour, devicePixelRatioF()));
    testSpeakerButton->setIconSize(testSpeakerButton->size() - QSize(4, 4));
    testSpeakerButton->setToolTip(QStringLiteral("test internal speaker"));

    connect(soundOnBox, &QCheckBox::clicked, this, [this](bool on) { SettingsOptions(m_ctx).setSoundOn(on); });
    connect(errorPopupsBox, &QCheckBox::clicked, this, [this](bool on) { SettingsOptions(m_ctx).setErrorPopups(on); });
    connect(autoLoadBox, &QCheckBox::clicked, this, [this](bool on) { SettingsOptions(m_ctx).setAutoLoad(on); });
    connect(noSecondBox, &QCheckBox::clicked, this, [this](bool on) { SettingsOptions(m_ctx).setNoSecond(on); });
    connect(internalSpeakerBox, &QCheckBox::clicked, this,
            [this](bool on) { SettingsOptions(m_ctx).setInternalSpeaker(on); });
    connect(speakerInsteadOfMidiBox, &QCheckBox::clicked, this,
            [this](bool on) { SettingsOptions(m_ctx).setSpeakerInsteadOfMidi(on); });
    connect(nextPageButton, &QPushButton::clicked, this, [this] { SettingsOptions(m_ctx).nextPage(); });
    connect(closeButton, &QPushButton::clicked, this, &QWidget::close);
    connect(testSpeakerButton, &QPushButton::clicked, this, [this] { SettingsOptions(m_ctx).testSpeaker(); });
    connect(autostartOnButton, &QPushButton::clicked, this,
            [this] { SettingsOptions(m_ctx).autostartOn(QCoreApplication::applicationFilePath()); });
    connect(autostartOffButton, &QPushButton::clicked, this, [this] { SettingsOptions(m_ctx).autostartOff(); });

    // The option boxes carry no text of their own: each is known by the caption beside it.
    const std::pair<QCheckBox*, QLabel*> captioned[] = {{soundOnBox, soundOnLabel},
                                                        {errorPopupsBox, errorPopupsLabel},
                                                        {autoLoadBox, autoLoadLabel},
                                                        {noSecondBox, noSecondLabel},
                                                        {internalSpeakerBox, internalSpeakerLabel},
                                                        {speakerInsteadOfMidiBox, speakerInsteadOfMidiLabel}};
    for (const auto& [box, label] : captioned) {
        box->setAccessibleName(label->text());
        label->setBuddy(box);
    }
    nextPageButton->setAccessibleName(QStringLiteral("Next page"));
    testSpeakerButton->setAccessibleName(testLabel->text());
    new DialogKeys(this, closeButton);

    m_ctx.settings.changed = [this] { showState(); };
    m_listening = true;
    SettingsOptions(m_ctx).touch();
    applyFont(m_ctx.settings.boxes.appliedFont);
    // Times New Roman at 10 points is wider than the layout's face: a one-line caption shrinks rather than be cut.
    for (QLabel* label : findChildren<QLabel*>())
        if (!label->wordWrap())
            label->setFont(fittedFont(label->font(), label->text(), label->contentsRect().width()));
    showState();
}

SettingsWindow::~SettingsWindow() {
    stopListening();
}

void SettingsWindow::closeEvent(QCloseEvent* event) {
    // A window opened again before this one is deleted listens by then; leave it alone.
    stopListening();
    SettingsOptions(m_ctx).close();
    event->accept();
}

void SettingsWindow::stopListening() {
    if (m_listening)
        m_ctx.settings.changed = nullptr;
    m_listening = false;
}

void SettingsWindow::showState() {
    const SettingsBoxes& s = m_ctx.settings.boxes;
    soundOnBox->setChecked(s.soundOnBox);
    errorPopupsBox->setChecked(s.errorPopupsBox);
    autoLoadBox->setChecked(s.autoLoadBox);
    noSecondBox->setChecked(s.noSecondBox);
    internalSpeakerBox->setChecked(s.internalSpeakerBox);
    speakerInsteadOfMidiBox->setChecked(s.speakerInsteadOfMidiBox);
    if (s.fontButton >= 1 && s.fontButton <= 3)
        fontButtons[s.fontButton - 1]->setChecked(true);

    errorPopupsBox->setVisible(s.errorPopupsBoxVisible);
    testLabel->setVisible(s.testVisible);
    testSpeakerButton->setVisible(s.testVisible);
    speakerFrame->setVisible(s.firstPageVisible);
    optionsFrame->setVisible(s.firstPageVisible);
    fontFrame->setVisible(s.firstPageVisible);
    autostartFrame->setVisible(!s.firstPageVisible);
    autostartLabel->setText(s.autostartLabel);
}

void SettingsWindow::applyFont(int fontChoice) {
    if (fontChoice != 1 && fontChoice != 2)
        return;
    const QList<QWidget*> targets = {
        speakerFrame,   optionsFrame,     fontFrame,    autoLoadLabel, internalSpeakerLabel, speakerInsteadOfMidiLabel,
        noSecondLabel,  errorPopupsLabel, soundOnLabel, testLabel,     closeButton,          fontButtons[0],
        fontButtons[1], fontButtons[2]};
    for (QWidget* w : targets) {
        QFont font = w->font();
        if (fontChoice == 1) {
            font.setFamily(QStringLiteral("Arial"));
        } else {
            font.setFamily(QStringLiteral("Times New Roman"));
            font.setPointSize(10);
        }
        w->setFont(font);
    }
}
