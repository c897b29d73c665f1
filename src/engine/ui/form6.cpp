#include "engine/ui/form6.h"

#include "engine/context.h"
#include "platform/clock.h"
#include "platform/ui/typed_key.h"
#include "platform/ui/window_twips.h"
#include "settings/settings_records.h"
#include "sound/alarm_sound.h"
#include "sound/notices.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>

using window_twips::place;

Form6::Form6(Context& ctx, const QString& text) : m_ctx(ctx) {
    setAttribute(Qt::WA_DeleteOnClose);
    setFont(window_twips::designFont(font()));
    window_twips::sizeAndCentre(this, 4476, 2892);
    setWindowTitle(RemindMe::title(ctx.clock.now()));

    m_txtMsg = new QPlainTextEdit(this);
    place(m_txtMsg, 120, 120, 4332, 2292);
    m_txtMsg->setReadOnly(true);
    m_txtMsg->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    QFont font(QStringLiteral("Times New Roman"));
    SettingRecord& rec = ctx.m.recSetting;
    if (settings_records::readRecord(ctx.m.strAppPath, settings_records::kFontSize, rec) && rec.lngValue1 > 0)
        font.setPointSize(rec.lngValue1);
    m_txtMsg->setFont(font);

    auto* lblRemindMe = new QLabel(QStringLiteral("Remind me"), this);
    place(lblRemindMe, 120, 2556, 1092, 372);
    txtMinutes = new QLineEdit(this);
    place(txtMinutes, 1200, 2520, 372, 264);
    txtMinutes->installEventFilter(this);
    auto* lblMins = new QLabel(QStringLiteral("min(s)"), this);
    place(lblMins, 1680, 2556, 492, 252);
    cbTimesOfPlay = new QComboBox(this);
    place(cbTimesOfPlay, 2280, 2520, 1092, 276);
    cbTimesOfPlay->addItems(
        {QStringLiteral("once"), QStringLiteral("twice"), QStringLiteral("thrice"), QStringLiteral("repeat")});
    cbTimesOfPlay->setPlaceholderText(QStringLiteral("Play Times"));
    cbTimesOfPlay->setCurrentIndex(-1);
    cbTimesOfPlay->hide();
    cmdOK = new QPushButton(QStringLiteral("OK"), this);
    place(cmdOK, 3600, 2520, 612, 252);
    cmdOK->setAutoDefault(false);
    connect(cmdOK, &QPushButton::clicked, this, &Form6::cmdOK_Click);

    setTxtMsg(text);
    Timer1 = new QTimer(this);
    Timer1->setInterval(1000);
    connect(Timer1, &QTimer::timeout, this, &Form6::Timer1_Timer);
    Timer1->start();

    window_twips::makeTopmost(this);
    show();
}

void Form6::setTxtMsg(const QString& text) {
    m_text = text;
    m_txtMsg->setPlainText(QString(text).replace(QLatin1String("\r\n"), QLatin1String("\n")));
}

void Form6::Timer1_Timer() {
    const QDateTime now = m_ctx.clock.now();
    setWindowTitle(RemindMe::title(now));
    QString text = m_text;
    if (m_remind.step(now, text)) {
        setTxtMsg(text);
        m_ctx.sound.PlaySound(m_remind.strTimesOfPlay, m_ctx.m.strSongName);
        show();
        window_twips::makeTopmost(this);
    }
}

void Form6::cmdOK_Click() {
    switch (m_remind.ok(txtMinutes->text(),
                        cbTimesOfPlay->currentIndex() >= 0 ? cbTimesOfPlay->currentText() : QString(),
                        m_ctx.clock.now())) {
    case RemindMe::OkResult::Close:
        close();
        break;
    case RemindMe::OkResult::ZeroRefused:
        m_ctx.notices.AnswerOk(QStringLiteral("0 minute is invalid, the message will be ignored"));
        close();
        break;
    case RemindMe::OkResult::Counting:
        txtMinutes->clear();
        hide();
        break;
    }
}

bool Form6::eventFilter(QObject* watched, QEvent* event) {
    if (watched == txtMinutes) {
        if (event->type() == QEvent::MouseButtonPress) {
            cbTimesOfPlay->show();
        } else if (!committedText(event).isEmpty()) {
            QApplication::beep(); // composed characters are never digits
            return true;
        } else if (event->type() == QEvent::KeyPress) {
            auto* key = static_cast<QKeyEvent*>(event);
            // Return, Enter and Escape type characters here too: there is no default or cancel button.
            const bool control =
                key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter || key->key() == Qt::Key_Escape;
            if (!control && !typesCharacter(key))
                return false; // arrows, Home, End, Delete and Tab edit and move as usual
            const QChar c = key->key() == Qt::Key_Backspace ? QChar(8) : (control ? QChar(13) : key->text().at(0));
            if (!RemindMe::keyAllowed(c)) {
                QApplication::beep();
                return true;
            }
        } else if (event->type() == QEvent::KeyRelease) {
            if (RemindMe::tooLong(txtMinutes->text())) {
                txtMinutes->clear();
                QApplication::beep();
            }
        }
    }
    return QDialog::eventFilter(watched, event);
}
