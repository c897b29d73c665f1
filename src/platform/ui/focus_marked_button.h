#pragma once

#include <QPushButton>

// A push button that shows its focus however the style draws a default button: a default button that has the
// focus looks the same as one that has not in some styles.
class FocusMarkedButton : public QPushButton {
public:
    explicit FocusMarkedButton(const QString& text, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};
