#pragma once

#include <QComboBox>

#include <functional>

// A combo box that tells, before its list opens, that it is about to drop down, so its items can be
// filled or rebuilt first.
class DropDownCombo : public QComboBox {
    Q_OBJECT
public:
    using QComboBox::QComboBox;
    std::function<void()> dropDown;

    void showPopup() override;
};
