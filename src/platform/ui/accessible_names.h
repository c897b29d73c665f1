#pragma once

class QComboBox;

namespace accessible_names {

// An editable box is read out by its text field as well as by the box: both carry the name.
void nameTimeBoxes(QComboBox* hour, QComboBox* minute, QComboBox* second);

} // namespace accessible_names
