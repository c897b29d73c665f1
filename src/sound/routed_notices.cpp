#include "sound/routed_notices.h"

RoutedNotices::Capture::Capture(RoutedNotices& route) : m_route(route), m_outer(route.m_capture) {
    route.m_capture = this;
}

RoutedNotices::Capture::~Capture() {
    m_route.m_capture = m_outer;
}

void RoutedNotices::answerOk(const QString& text) {
    if (m_capture)
        m_capture->m_warnings.append(text);
    else
        m_windows.answerOk(text);
}

void RoutedNotices::beep() {
    if (m_capture)
        ++m_capture->m_beeps;
    else
        m_windows.beep();
}
