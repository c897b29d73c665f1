#include "platform/ui/accessible_names.h"

#include <QComboBox>
#include <QLineEdit>

namespace accessible_names {

void nameTimeBoxes(QComboBox* hour, QComboBox* minute, QComboBox* second) {
    const std::pair<QComboBox*, QString> names[] = {
        {hour, QStringLiteral("Hour")}, {minute, QStringLiteral("Minute")}, {second, QStringLiteral("Second")}};
    for (const auto& [box, name] : names) {
        box->setAccessibleName(name);
        if (box->lineEdit())
            box->lineEdit()->setAccessibleName(name);
    }
}

} // namespace accessible_names
