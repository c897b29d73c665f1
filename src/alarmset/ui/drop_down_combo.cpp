#include "alarmset/ui/drop_down_combo.h"

void DropDownCombo::showPopup() {
    if (dropDown)
        dropDown();
    QComboBox::showPopup();
}
