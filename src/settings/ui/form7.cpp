#include "settings/ui/form7.h"

#include "engine/context.h"
#include "platform/ui/window_twips.h"
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

Form7::Form7(Context& ctx, QWidget* parent) : QWidget(parent, Qt::Window), m_ctx(ctx) {
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("Form7"));
    setWindowTitle(QStringLiteral("Settings"));
    window_twips::sizeAndCentre(this, 6216, 5124);
    // The layout is measured for an 8-point face of Arial's widths; wider or larger desktop faces would push
    // captions out of their frames.
    QFont designFont = window_twips::designFont(font());
    setFont(designFont);

    Frame2 = frame(this, QStringLiteral("Frame2"), QString(), 0, 1812);
    chkSoundOn = bareBox(Frame2, QStringLiteral("chkSoundOn"), 120, 240);
    lblSoundOn = boxLabel(Frame2, QStringLiteral("lblSoundOn"), QStringLiteral("Sound on"), 120, 240, 300);
    chkErrMsgPop = bareBox(Frame2, QStringLiteral("chkErrMsgPop"), 120, 600);
    lblPremier = boxLabel(Frame2, QStringLiteral("lblPremier"),
                          QStringLiteral("Show error message if sound cannot be played"), 120, 600, 300);
    chkAutoLoad = bareBox(Frame2, QStringLiteral("chkAutoLoad"), 120, 960);
    lblAutoLoad = boxLabel(Frame2, QStringLiteral("lblAutoLoad"),
                           QStringLiteral("Automatically load alarm events when Bellwick starts"), 120, 960, 480);
    chkNoSec = bareBox(Frame2, QStringLiteral("chkNoSec"), 120, 1440);
    lblNoSec =
        boxLabel(Frame2, QStringLiteral("lblNoSec"), QStringLiteral("Don't compare with second"), 120, 1440, 300);

    Frame1 = frame(this, QStringLiteral("Frame1"), QStringLiteral("Internal Speaker"), 1920, 1212);
    chkInternalSpeaker = bareBox(Frame1, QStringLiteral("chkInternalSpeaker"), 120, 360);
    lblInternalSpeaker = boxLabel(Frame1, QStringLiteral("lblInternalSpeaker"),
                                  QStringLiteral("Use internal speaker instead of wave. (A necessary DLL file is "
                                                 "needed , refer to trouble shooting in help.)"),
                                  120, 360, 480);
    chkISInsteadMidi = bareBox(Frame1, QStringLiteral("chkISInsteadMidi"), 120, 840);
    lblISpeakerInsteadMidi =
        boxLabel(Frame1, QStringLiteral("lblISpeakerInsteadMidi"),
                 QStringLiteral("When MCI is busy, use internal speaker instead of midi sound"), 120, 840, 300);

    Frame3 = frame(this, QStringLiteral("Frame3"),
                   QStringLiteral("Font (it will take effect when Bellwick starts next time)"), 3240, 1332);
    const QString fontCaptions[3] = {QStringLiteral("Use Arial font"), QStringLiteral("Enlarge"),
                                     QStringLiteral("Normal")};
    for (int i = 0; i < 3; ++i) {
        optFont[i] = new QRadioButton(fontCaptions[i], Frame3);
        optFont[i]->setObjectName(QStringLiteral("optFont%1").arg(i + 1));
        place(optFont[i], 120, 240 + 360 * i, 3600, 300);
        connect(optFont[i], &QRadioButton::clicked, this, [this, i] { m_ctx.form7.SetFont(m_ctx, i + 1); });
    }

    fraLoadBwk = frame(this, QStringLiteral("fraLoadBwk"), QStringLiteral("Load Me"), 0, 2172);
    lblLoadBwk = new QLabel(fraLoadBwk);
    lblLoadBwk->setObjectName(QStringLiteral("lblLoadBwk"));
    lblLoadBwk->setWordWrap(true);
    lblLoadBwk->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    place(lblLoadBwk, 480, 240, 4452, 780);
    cmdRun = button(fraLoadBwk, QStringLiteral("cmdRun"), QStringLiteral("Run Bellwick when Windows starts"));
    place(cmdRun, 480, 1080, 4092, 372);
    cmdNoRun = button(fraLoadBwk, QStringLiteral("cmdNoRun"), QStringLiteral("Don't run Bellwick when Windows starts"));
    place(cmdNoRun, 480, 1560, 4092, 372);

    cmdNext = button(this, QStringLiteral("cmdNext"), QStringLiteral(">"));
    place(cmdNext, 5400, 120, 492, 252);
    cmdClose = button(this, QStringLiteral("cmdClose"), QStringLiteral("Close"));
    place(cmdClose, 5280, 4560, 732, 372);
    lblTest = new QLabel(QStringLiteral("test internal speaker"), this);
    lblTest->setObjectName(QStringLiteral("lblTest"));
    place(lblTest, 120, 4800, 1812, 252);
    cmdPlayIS = button(this, QStringLiteral("cmdPlayIS"), QString());
    place(cmdPlayIS, 2040, 4800, 252, 252);
    cmdPlayIS->setIcon(playIcon(cmdPlayIS->height(), QColor(0x1B, 0x7A, 0x2E), devicePixelRatioF()));
    cmdPlayIS->setIconSize(cmdPlayIS->size() - QSize(4, 4));
    cmdPlayIS->setToolTip(QStringLiteral("test internal speaker"));

    Form7Options& f7 = m_ctx.form7;
    connect(chkSoundOn, &QCheckBox::clicked, this, [this](bool on) { m_ctx.form7.SetSoundOn(m_ctx, on); });
    connect(chkErrMsgPop, &QCheckBox::clicked, this, [this](bool on) { m_ctx.form7.SetErrMsgPop(m_ctx, on); });
    connect(chkAutoLoad, &QCheckBox::clicked, this, [this](bool on) { m_ctx.form7.SetAutoLoad(m_ctx, on); });
    connect(chkNoSec, &QCheckBox::clicked, this, [this](bool on) { m_ctx.form7.SetNoSec(m_ctx, on); });
    connect(chkInternalSpeaker, &QCheckBox::clicked, this,
            [this](bool on) { m_ctx.form7.SetInternalSpeaker(m_ctx, on); });
    connect(chkISInsteadMidi, &QCheckBox::clicked, this, [this](bool on) { m_ctx.form7.SetISInsteadMidi(m_ctx, on); });
    connect(cmdNext, &QPushButton::clicked, this, [this] { m_ctx.form7.NextClick(); });
    connect(cmdClose, &QPushButton::clicked, this, &QWidget::close);
    connect(cmdPlayIS, &QPushButton::clicked, this, [this] { m_ctx.form7.PlayISClick(m_ctx); });
    connect(cmdRun, &QPushButton::clicked, this,
            [this] { m_ctx.form7.RunClick(m_ctx, QCoreApplication::applicationFilePath()); });
    connect(cmdNoRun, &QPushButton::clicked, this, [this] { m_ctx.form7.NoRunClick(m_ctx); });

    f7.changed = [this] { showState(); };
    m_listening = true;
    f7.Touch(m_ctx);
    applyFont(f7.state().appliedFont);
    showState();
}

Form7::~Form7() {
    stopListening();
}

void Form7::closeEvent(QCloseEvent* event) {
    // A window opened again before this one is deleted listens by then; leave it alone.
    stopListening();
    m_ctx.form7.Close(m_ctx);
    event->accept();
}

void Form7::stopListening() {
    if (m_listening)
        m_ctx.form7.changed = nullptr;
    m_listening = false;
}

void Form7::showState() {
    const Form7State& s = m_ctx.form7.state();
    chkSoundOn->setChecked(s.chkSoundOn);
    chkErrMsgPop->setChecked(s.chkErrMsgPop);
    chkAutoLoad->setChecked(s.chkAutoLoad);
    chkNoSec->setChecked(s.chkNoSec);
    chkInternalSpeaker->setChecked(s.chkInternalSpeaker);
    chkISInsteadMidi->setChecked(s.chkISInsteadMidi);
    if (s.optFont >= 1 && s.optFont <= 3)
        optFont[s.optFont - 1]->setChecked(true);

    chkErrMsgPop->setVisible(s.chkErrMsgPopVisible);
    lblTest->setVisible(s.testVisible);
    cmdPlayIS->setVisible(s.testVisible);
    Frame1->setVisible(s.page1Visible);
    Frame2->setVisible(s.page1Visible);
    Frame3->setVisible(s.page1Visible);
    fraLoadBwk->setVisible(!s.page1Visible);
    lblLoadBwk->setText(s.lblLoadBwk);
}

void Form7::applyFont(int fontChoice) {
    if (fontChoice != 1 && fontChoice != 2)
        return;
    const QList<QWidget*> targets = {
        Frame1,     Frame2,     Frame3,     lblAutoLoad, lblInternalSpeaker, lblISpeakerInsteadMidi,
        lblNoSec,   lblPremier, lblSoundOn, lblTest,     cmdClose,           optFont[0],
        optFont[1], optFont[2]};
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
