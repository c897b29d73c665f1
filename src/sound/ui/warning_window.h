#pragma once

#include <QDialog>

class Context;
class QLabel;
class QPushButton;

// A warning: one window each, not modal; the newest claims the front.
class WarningWindow : public QDialog {
    Q_OBJECT
public:
    WarningWindow(Context& ctx, const QString& text);

    int32_t serial() const { return m_serial; }
    QString text() const;

    void onOkClicked();

    void reject() override;

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void onLostFocus();

    Context& m_ctx;
    int32_t m_serial = 0;
    int32_t previousFront = 0;
    bool m_frontGivenBack = false;

    void giveFrontBack();
    QLabel* textLabel;
    QLabel* serialLabel;
    QPushButton* okButton;
};
