#pragma once

#include <QDialog>

class Context;
class QLabel;
class QPushButton;

// A warning: one window each, not modal; the newest claims the front.
class Form11 : public QDialog {
    Q_OBJECT
public:
    Form11(Context& ctx, const QString& ErrorMsgStr);

    int32_t serial() const { return m_serial; }
    QString text() const;

    void cmdOK_Click();

    void reject() override;

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void Form_LostFocus();

    Context& m_ctx;
    int32_t m_serial = 0;
    int32_t lngPrevTop = 0;
    bool m_frontGivenBack = false;

    void giveFrontBack();
    QLabel* Label1;
    QLabel* lblMyVisibility;
    QPushButton* cmdOK;
};
