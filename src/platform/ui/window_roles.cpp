#include "platform/ui/window_roles.h"

#include <QAccessibleWidget>
#include <QWidget>

namespace {

QAccessibleInterface* windowInterface(const QString& className, QObject* object) {
    if (!object || !object->isWidgetType())
        return nullptr;
    auto* widget = static_cast<QWidget*>(object);
    // Only our own windows built straight on QWidget: Qt's classes (menus among them) have interfaces of their own.
    const QMetaObject* meta = widget->metaObject();
    const bool plain = meta == &QWidget::staticMetaObject ||
                       (meta->superClass() == &QWidget::staticMetaObject && meta->className()[0] != 'Q');
    const Qt::WindowType type = widget->windowType();
    const bool window = type == Qt::Window || type == Qt::Dialog || type == Qt::Tool;
    if (!widget->isWindow() || !window || !plain || className != QLatin1String(meta->className()))
        return nullptr;
    const bool framed = !(widget->windowFlags() & Qt::FramelessWindowHint);
    return new QAccessibleWidget(widget, framed ? QAccessible::Dialog : QAccessible::Window);
}

} // namespace

void window_roles::install() {
    static bool installed = false;
    if (!installed)
        QAccessible::installFactory(windowInterface);
    installed = true;
}
