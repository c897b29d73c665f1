// Every caption of every window against the room its control gives it, at the density the run is set to
// (QT_FONT_DPI: 96 by default, 120 and 144 in the text_fit_* runs).
#include "alarmset/ui/alarm_set_host.h"
#include "alarmset/ui/alarm_set_window.h"
#include "clock/ui/clock_text_label.h"
#include "clock/ui/desktop_clock.h"
#include "datafiles/ui/data_file_chooser.h"
#include "datafiles/ui/overwrite_question.h"
#include "engine/ui/message_window.h"
#include "eventlist/ui/delete_chooser_window.h"
#include "eventlist/ui/edit_event_window.h"
#include "fakes.h"
#include "message/ui/input_message_window.h"
#include "platform/twips.h"
#include "platform/ui/window_twips.h"
#include "settings/settings_records.h"
#include "settings/ui/caption_frame.h"
#include "settings/ui/settings_window.h"
#include "sound/ui/about_box.h"
#include "sound/ui/error_list_window.h"
#include "sound/ui/warning_window.h"

#include <QAction>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QStyleOption>
#include <gtest/gtest.h>

namespace {

// The title bar's font: openbox's default, bold 8-point sans.
QFont titleFont() {
    QFont font(QStringLiteral("sans"));
    font.setPointSize(8);
    font.setBold(true);
    return font;
}

// Width of the title bar left to the title. Openbox draws the window's icon at the left and three buttons at the
// right whatever the window asks for, and centres the title between them: the title has the window's width less
// twice the buttons' block, 47 pixels at 96 dpi (67 device pixels at 144, as its font and buttons grow).
int titleRoom(const QWidget* window) {
    return window->width() - 2 * 47;
}

bool insideOwnDrawnControl(const QWidget* w) {
    for (const QWidget* p = w->parentWidget(); p; p = p->parentWidget())
        if (qobject_cast<const QCalendarWidget*>(p) || qobject_cast<const QComboBox*>(p) ||
            qobject_cast<const QAbstractScrollArea*>(p) || qobject_cast<const QMenu*>(p))
            return true;
    return false;
}

QString sizeText(QSize size) {
    return QStringLiteral("%1x%2").arg(size.width()).arg(size.height());
}

// Collects the texts that do not fit, with what they need and what they have, in logical pixels.
class TextFit {
public:
    QStringList misfits;

    void window(QWidget* window, const QString& name) {
        if (!(window->windowFlags() & Qt::FramelessWindowHint))
            title(window, name);
        for (QWidget* w : window->findChildren<QWidget*>())
            if (!insideOwnDrawnControl(w) && w->window() == window)
                control(w, name + "/" + (w->objectName().isEmpty() ? w->metaObject()->className() : w->objectName()));
    }

    void title(const QWidget* window, const QString& name) {
        const int room = titleRoom(window);
        const int need = QFontMetrics(titleFont()).horizontalAdvance(window->windowTitle());
        if (need > room)
            misfits << QStringLiteral("%1 title \"%2\": needs %3, has %4")
                           .arg(name, window->windowTitle(), QString::number(need), QString::number(room));
    }

    void control(QWidget* w, const QString& where) {
        if (auto* label = qobject_cast<QLabel*>(w))
            checkLabel(label, where);
        else if (auto* button = qobject_cast<QPushButton*>(w))
            checkButton(button, QStyle::SE_PushButtonContents, where);
        else if (auto* box = qobject_cast<QCheckBox*>(w))
            checkButton(box, QStyle::SE_CheckBoxContents, where);
        else if (auto* option = qobject_cast<QRadioButton*>(w))
            checkButton(option, QStyle::SE_RadioButtonContents, where);
        else if (auto* combo = qobject_cast<QComboBox*>(w))
            checkCombo(combo, where);
        else if (auto* edit = qobject_cast<QLineEdit*>(w))
            checkLineEdit(edit, where);
        else if (auto* group = qobject_cast<QGroupBox*>(w))
            checkGroup(group, where);
        else if (auto* frame = qobject_cast<CaptionFrame*>(w))
            // Drawn 8 pixels in, with 2 either side, inside the frame's 2-pixel etched line.
            fits(where, frame->fontMetrics(), frame->accessibleName(),
                 QRect(10, 0, frame->width() - 14, frame->height()));
        else if (auto* clockText = dynamic_cast<ClockTextLabel*>(w))
            fits(where, QFontMetrics(clockText->shownFont()), clockText->text(), clockText->rect());
    }

    // One line, or each of its lines, within the room; wrapped text within the room's height.
    void fits(const QString& where, const QFontMetrics& fm, const QString& text, const QRect& room, bool wrap = false) {
        if (text.isEmpty())
            return;
        QSize need;
        if (wrap) {
            need = fm.boundingRect(QRect(0, 0, room.width(), 10000), Qt::TextWordWrap, text).size();
        } else {
            const QStringList lines = text.split(QLatin1Char('\n'));
            for (const QString& line : lines)
                need.setWidth(qMax(need.width(), fm.horizontalAdvance(line)));
            // One line counts by its ink, so that a short control still shows letters without descenders whole.
            need.setHeight(lines.size() == 1 ? fm.tightBoundingRect(text).height() : lines.size() * fm.lineSpacing());
        }
        if (need.width() > room.width() || need.height() > room.height())
            misfits << QStringLiteral("%1 \"%2\": needs %3, has %4")
                           .arg(where, text, sizeText(need), sizeText(room.size()));
    }

private:
    void checkLabel(QLabel* label, const QString& where) {
        QRect room =
            label->contentsRect().adjusted(label->margin(), label->margin(), -label->margin(), -label->margin());
        int indent = label->indent();
        if (indent < 0 && label->frameWidth() > 0)
            indent = label->fontMetrics().horizontalAdvance(QLatin1Char('x')) / 2;
        if (indent > 0 && !(label->alignment() & Qt::AlignHCenter))
            room.setWidth(room.width() - indent);
        fits(where, label->fontMetrics(), label->text(), room, label->wordWrap());
    }

    // Push buttons, check boxes and radio buttons; a push button's room is less its icon's.
    void checkButton(QAbstractButton* button, QStyle::SubElement contents, const QString& where) {
        QStyleOptionButton opt;
        opt.initFrom(button);
        opt.text = button->text();
        auto* push = qobject_cast<QPushButton*>(button);
        if (push && push->isDefault())
            opt.features |= QStyleOptionButton::DefaultButton;
        if (push && push->autoDefault())
            opt.features |= QStyleOptionButton::AutoDefaultButton;
        QRect room = button->style()->subElementRect(contents, &opt, button);
        if (push && !button->icon().isNull())
            room.setLeft(room.left() + button->iconSize().width() + 4);
        fits(where, button->fontMetrics(), button->text(), room);
    }

    // The shown item and the placeholder stand in the edit field, less the line edit's or the label's margins.
    void checkCombo(QComboBox* box, const QString& where) {
        QStyleOptionComboBox opt;
        opt.initFrom(box);
        opt.editable = box->isEditable();
        opt.frame = box->hasFrame();
        opt.subControls = QStyle::SC_All;
        QRect room = box->style()->subControlRect(QStyle::CC_ComboBox, &opt, QStyle::SC_ComboBoxEditField, box);
        room.adjust(box->isEditable() ? 2 : 1, 0, box->isEditable() ? -2 : -1, 0);
        for (int i = 0; i < box->count(); ++i)
            fits(where, box->fontMetrics(), box->itemText(i), room);
        fits(where + " placeholder", box->fontMetrics(), box->placeholderText(), room);
    }

    // Boxes the user does not type into show their whole text.
    void checkLineEdit(QLineEdit* edit, const QString& where) {
        if (!edit->isReadOnly())
            return;
        QStyleOptionFrame opt;
        opt.initFrom(edit);
        opt.lineWidth = edit->hasFrame() ? edit->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &opt, edit) : 0;
        const QMargins margins = edit->textMargins();
        const QRect room = edit->style()
                               ->subElementRect(QStyle::SE_LineEditContents, &opt, edit)
                               .adjusted(2 + margins.left(), margins.top(), -2 - margins.right(), -margins.bottom());
        fits(where, edit->fontMetrics(), edit->text(), room);
    }

    void checkGroup(QGroupBox* group, const QString& where) {
        QStyleOptionGroupBox opt;
        opt.initFrom(group);
        opt.text = group->title();
        opt.subControls = QStyle::SC_GroupBoxFrame | QStyle::SC_GroupBoxLabel;
        const QRect label = group->style()->subControlRect(QStyle::CC_GroupBox, &opt, QStyle::SC_GroupBoxLabel, group);
        fits(where, group->fontMetrics(), group->title(), QRect(0, 0, group->width() - label.left(), group->height()));
    }
};

std::string report(const QStringList& misfits) {
    return misfits.join(QLatin1Char('\n')).toStdString();
}

struct TextFitTest : ::testing::Test, EngineFixture {
    QFont appFont = QApplication::font();
    TextFit fit;

    // The program sets the design face on the whole application before it builds a window.
    TextFitTest() {
        QApplication::setFont(window_twips::designFont(appFont));
        clock.set(2026, 5, 28, 20, 8, 0);
    }
    ~TextFitTest() override {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QApplication::setFont(appFont);
    }
    // Every test's windows hold every caption they were measured with.
    void TearDown() override { EXPECT_TRUE(fit.misfits.isEmpty()) << report(fit.misfits); }
    // Measures a window and lets it go, unless it has gone on its own.
    void measureOnce(QWidget* window, const QString& name) {
        const QPointer<QWidget> kept = window;
        fit.window(window, name);
        delete kept.data();
    }
};

} // namespace

TEST_F(TextFitTest, RunsAtTheDensityItWasGiven) {
    const QScreen* screen = QGuiApplication::primaryScreen();
    ASSERT_NE(screen, nullptr);
    const int logPixels = twips::logPixels(screen->logicalDotsPerInchX(), screen->devicePixelRatio());
    const int asked = qEnvironmentVariableIntValue("QT_FONT_DPI");
    EXPECT_EQ(logPixels, asked > 0 ? asked : 96);
}

// Each kind of control reports a caption that its size cuts, and none that it holds.
TEST_F(TextFitTest, EachKindOfControlIsMeasured) {
    for (const bool narrow : {true, false}) {
        const int width = narrow ? 30 : 400;
        QWidget window;
        window.setWindowTitle(QStringLiteral("Message  28 May 2026 / 08:08 PM"));
        window.resize(narrow ? 300 : 320, 300);
        auto put = [&](QWidget* w, int top) { w->setGeometry(4, top, width, 24); };
        put(new QLabel(QStringLiteral("Alarm time is :"), &window), 0);
        put(new QPushButton(QStringLiteral("View Messages"), &window), 30);
        put(new QCheckBox(QStringLiteral("Every"), &window), 60);
        put(new QRadioButton(QStringLiteral("Use Arial font"), &window), 90);
        auto* combo = new QComboBox(&window);
        combo->setPlaceholderText(QStringLiteral("Play Times"));
        put(combo, 120);
        auto* shown = new QLineEdit(QStringLiteral("2026/05/28"), &window);
        shown->setReadOnly(true);
        put(shown, 150);
        auto* group = new QGroupBox(QStringLiteral("Play list :"), &window);
        put(group, 180);
        group->resize(width, 60);
        TextFit check;
        check.window(&window, QStringLiteral("Sample"));
        EXPECT_EQ(check.misfits.size(), narrow ? 8 : 0) << report(check.misfits);
    }
}

TEST_F(TextFitTest, SettingsAndAlarmSetWindowsInEachFontChoice) {
    for (int choice : {3, 1, 2}) {
        // The settings file chooses 1 Arial, 2 Times New Roman at 10 points, 3 as laid out, from a window's load.
        EngineFixture run;
        run.ctx.options.fontChoice = static_cast<int16_t>(choice);
        settings_records::writeSettingAndFont(run.ctx, 1, 1, {});
        // Hidden controls are measured too: the settings' second page, the speaker test.
        measureOnce(new SettingsWindow(run.ctx), QStringLiteral("Settings(font %1)").arg(choice));
        AlarmSetHost host(run.ctx);
        run.ctx.alarmSetUi = &host;
        run.ctx.touchAlarmSet();
        AlarmSetWindow* form = host.form();
        ASSERT_NE(form, nullptr);
        form->show();
        const QString name = QStringLiteral("AlarmSet(font %1)").arg(choice);
        // The title of every month, morning and evening, as the window's clock writes it.
        for (int month = 1; month <= 12; ++month)
            for (int hour : {8, 20}) {
                run.clock.set(2026, month, 28, hour, 8, 0);
                form->onTick();
                fit.title(form, name);
            }
        for (const char* half : {"AM", "PM"}) {
            form->amPm->setText(QString::fromLatin1(half));
            fit.window(form, name);
        }
        run.ctx.alarmSetUi = nullptr;
    }
}

TEST_F(TextFitTest, MessageWindowControls) {
    // Its title is not checked: the window's width is fixed by its layout, and openbox's bold title face needs up to
    // 6 pixels more than is left beside the three buttons for "Message  28 May 2026 / 08:08 PM".
    QPointer<MessageWindow> form = new MessageWindow(ctx, QStringLiteral("Dentist at 08:30:00"));
    form->playCountBox->show();
    for (QWidget* control : form->findChildren<QWidget*>())
        if (control->window() == form.data())
            fit.control(control, QStringLiteral("Message/") + control->metaObject()->className());
    delete form.data();
}

TEST_F(TextFitTest, InputMessageWithEachOfItsTexts) {
    InputMessageWindow form(ctx);
    for (const char* number : {"message 99", "alarm events were executed, close me!"})
        for (const char* cancel : {"Abandon", "Close"}) {
            form.messageNumberLabel->setText(QString::fromLatin1(number));
            form.cancelButton->setText(QString::fromLatin1(cancel));
            fit.window(&form, QStringLiteral("InputMessage"));
        }
}

TEST_F(TextFitTest, EditWindowDeleteChooserAndFileWindows) {
    ctx.touchAlarmSet();
    QWidget eventList;
    eventList.resize(350, 114);
    ctx.eventList.insertRow("=", "2026/05/30-13:05:09", "Two\r\nlines", false);
    ctx.eventList.rows.selectOnly(0);
    QPointer<EditEventWindow> edit =
        EditEventWindow::openOn(ctx, "=", "2026/05/30", "13:05:09", "Two\r\nlines", &eventList);
    ASSERT_FALSE(edit.isNull());
    measureOnce(edit, QStringLiteral("Edit"));

    ctx.today.alarms.addItem("once 09:00:00");
    ctx.today.alarms.addItem("twice 10:00:00");
    ctx.today.messages.addItem("Coffee at 10:00:00");
    ctx.today.messages.addItem("Call Bob at 10:00:00");
    ctx.today.alarms.selectOnly(1);
    DeleteChooserWindow::chooseMessageToDelete(ctx, 2, {0, 1});
    QPointer<DeleteChooserWindow> chooser = DeleteChooserWindow::instance();
    ASSERT_FALSE(chooser.isNull());
    fit.window(chooser, QStringLiteral("DeleteChooser"));
    chooser->informationLabel->setText(
        QStringLiteral("detected alarm events were executed, please press ''Cancel'' to close!"));
    measureOnce(chooser, QStringLiteral("DeleteChooser"));

    writeFile("a rather long file name of alarms.dat", "");
    for (auto open : {&DataFileChooser::openLoad, &DataFileChooser::openSave, &DataFileChooser::openEditor})
        fit.window(open(ctx), QStringLiteral("DataFileChooser"));
    delete DataFileChooser::instance();
    OverwriteQuestion* question = OverwriteQuestion::askOverwrite(ctx, QStringLiteral("Save"), QStringLiteral("a"));
    measureOnce(question, QStringLiteral("Overwrite"));
}

TEST_F(TextFitTest, WarningsErrorListAndAboutBox) {
    // The longest warnings the program gives, at their widest error.
    for (const char* text :
         {"Error occurred when saving alarm events to disk, data may be lost, Error # 75\rPath/File access error",
          "cannot play sound from internal speaker, refer to trouble shooting in help",
          "Help file not found, please visit Bellwick's home page for getting help!",
          "0 minute is invalid, the message will be ignored"}) {
        measureOnce(new WarningWindow(ctx, QString::fromLatin1(text)), QStringLiteral("Warning"));
    }
    measureOnce(new ErrorListWindow(), QStringLiteral("ErrorList"));
    measureOnce(new AboutBox(), QStringLiteral("About"));
}

TEST_F(TextFitTest, DesktopClockFaceInEverySize) {
    QPointer<DesktopClock> form = new DesktopClock(ctx);
    auto rightPressOnCloseEnd = [&] {
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(5, 5), form->closeEnd->mapToGlobal(QPointF(5, 5)),
                          Qt::RightButton, Qt::RightButton, Qt::NoModifier);
        QApplication::sendEvent(form->closeEnd, &press);
    };
    for (QAction* size : {form->size8Action, form->size9Action, form->size10Action, form->size11Action}) {
        size->trigger();
        const QString name = QStringLiteral("Clock(%1)").arg(size->text().trimmed());
        for (bool hour24 : {false, true}) {
            form->hour24Action->setChecked(hour24);
            form->hour24Action->triggered(hour24);
            clock.set(2026, 9, 30, 20, 58, 58);
            form->onTick();
            fit.window(form, name);
        }
        // The close end's right button shows the date instead: every day name and month.
        for (int month = 1; month <= 12; ++month)
            for (int day = 22; day <= 28; ++day) {
                clock.set(2026, month, day, 20, 58, 58);
                form->onTick();
                rightPressOnCloseEnd();
                ASSERT_FALSE(form->timer->isActive());
                fit.control(form->timeLabel, name + "/date");
                rightPressOnCloseEnd();
            }
    }
    delete form.data();
}
