#include "engine/ui/message_window.h"

#include "engine/alarm_event.h"
#include "engine/context.h"
#include "platform/clock.h"
#include "platform/ui/fitted_font.h"
#include "platform/ui/typed_key.h"
#include "platform/ui/window_place.h"
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
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QTimer>

using window_twips::place;

MessageWindow::MessageWindow(Context& ctx, const QString& text) : m_ctx(ctx) {
    setAttribute(Qt::WA_DeleteOnClose);
    setFont(window_twips::designFont(font()));
    window_twips::sizeAndCentre(this, 4476, 2892);
    // Hidden until it reminds again, and then it stands where the user left it.
    window_place::keep(*this);
    setWindowTitle(RemindMe::title(ctx.clock.now()));

    m_messageEdit = new QPlainTextEdit(this);
    place(m_messageEdit, 120, 120, 4332, 2292);
    m_messageEdit->setReadOnly(true);
    m_messageEdit->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    QFont font(QStringLiteral("Times New Roman"));
    SettingRecord& rec = ctx.recordBuffer;
    if (settings_records::readRecord(ctx.folder, settings_records::kFontSize, rec) && rec.value1 > 0)
        font.setPointSize(rec.value1);
    m_messageEdit->setFont(font);
    m_messageEdit->setAccessibleName(QStringLiteral("Message"));

    auto* remindMeLabel = new QLabel(QStringLiteral("Remind me"), this);
    place(remindMeLabel, 120, 2556, 1092, 372);
    minutesEdit = new QLineEdit(this);
    place(minutesEdit, 1200, 2520, 372, 264);
    minutesEdit->installEventFilter(this);
    minutesEdit->setAccessibleName(QStringLiteral("Remind me in minutes"));
    auto* minutesLabel = new QLabel(QStringLiteral("min(s)"), this);
    place(minutesLabel, 1680, 2556, 492, 252);
    playCountBox = new QComboBox(this);
    place(playCountBox, 2280, 2520, 1092, 276);
    playCountBox->addItems(alarm_event::playWords());
    playCountBox->setPlaceholderText(QStringLiteral("Play Times"));
    playCountBox->setAccessibleName(QStringLiteral("Play Times"));
    fitPlayCountText();
    playCountBox->setCurrentIndex(-1);
    playCountBox->hide();
    okButton = new QPushButton(QStringLiteral("OK"), this);
    place(okButton, 3600, 2520, 612, 252);
    okButton->setAutoDefault(false);
    connect(okButton, &QPushButton::clicked, this, &MessageWindow::onOkClicked);

    setMessageText(text);
    timer = new QTimer(this);
    timer->setInterval(1000);
    connect(timer, &QTimer::timeout, this, &MessageWindow::onTick);
    timer->start();

    window_twips::makeTopmost(this);
    show();
}

void MessageWindow::setMessageText(const QString& text) {
    m_text = text;
    m_messageEdit->setPlainText(text.left(kShownLength).replace(QLatin1String("\r\n"), QLatin1String("\n")));
}

void MessageWindow::onTick() {
    const QDateTime now = m_ctx.clock.now();
    setWindowTitle(RemindMe::title(now));
    QString text = m_text;
    if (m_remind.step(now, text)) {
        setMessageText(text);
        m_ctx.sound.playAlarm(m_remind.playWord, m_ctx.soundChoice.songPath);
        show();
        window_twips::makeTopmost(this);
    }
}

void MessageWindow::fitPlayCountText() {
    // The box is as wide as laid out; beside the style's arrow "Play Times" needs a slightly smaller face.
    QStyleOptionComboBox opt;
    opt.initFrom(playCountBox);
    opt.frame = playCountBox->hasFrame();
    opt.subControls = QStyle::SC_All;
    const int room = playCountBox->style()
                         ->subControlRect(QStyle::CC_ComboBox, &opt, QStyle::SC_ComboBoxEditField, playCountBox)
                         .width() -
                     2;
    playCountBox->setFont(fittedFont(playCountBox->font(), playCountBox->placeholderText(), room));
}

void MessageWindow::onOkClicked() {
    switch (m_remind.ok(minutesEdit->text(),
                        playCountBox->currentIndex() >= 0 ? playCountBox->currentText() : QString(),
                        m_ctx.clock.now())) {
    case RemindMe::OkResult::Close:
        close();
        break;
    case RemindMe::OkResult::ZeroRefused:
        m_ctx.notices.answerOk(QStringLiteral("0 minute is invalid, the message will be ignored"));
        close();
        break;
    case RemindMe::OkResult::Counting:
        minutesEdit->clear();
        hide();
        break;
    }
}

bool MessageWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == minutesEdit) {
        if (event->type() == QEvent::MouseButtonPress) {
            playCountBox->show();
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
            // The keyboard's way to the play count: a press of the mouse is not the only one that shows it.
            if (c.isDigit())
                playCountBox->show();
        } else if (event->type() == QEvent::KeyRelease) {
            if (RemindMe::tooLong(minutesEdit->text())) {
                minutesEdit->clear();
                QApplication::beep();
            }
        }
    }
    return QDialog::eventFilter(watched, event);
}
