#pragma once

#include "sound/notices.h"

#include <QStringList>

// The program's notices, passed on to its windows, except while a Capture stands: then the warnings and beeps
// of the work in hand are kept for whoever asked for it from outside (another process prints them), and no
// window opens on the desktop for them. Alarm windows, error lists and system-modal boxes always go through.
class RoutedNotices : public Notices {
public:
    explicit RoutedNotices(Notices& windows) : m_windows(windows) {}

    class Capture {
    public:
        explicit Capture(RoutedNotices& route);
        ~Capture();
        Capture(const Capture&) = delete;
        Capture& operator=(const Capture&) = delete;

        const QStringList& warnings() const { return m_warnings; }
        int beeps() const { return m_beeps; }

    private:
        friend class RoutedNotices;
        RoutedNotices& m_route;
        Capture* m_outer;
        QStringList m_warnings;
        int m_beeps = 0;
    };

    void answerOk(const QString& text) override;
    void showAlarmWindow(const QString& text) override { m_windows.showAlarmWindow(text); }
    ErrorList& newErrorList() override { return m_windows.newErrorList(); }
    ErrorList& sharedErrorList() override { return m_windows.sharedErrorList(); }
    void beep() override;
    void systemModalBox(const QString& text) override { m_windows.systemModalBox(text); }

private:
    Notices& m_windows;
    Capture* m_capture = nullptr;
};
