// Assignment by value of every control class, exported by the library. Each goes through the
// fields in their order: a list is emptied from its head and then copied element by element
// into new nodes (Link::operator=), words and bytes are copied one by one, and the window and
// what the control shows stay the target's own (ControlView).
#include <tessik/Controls.h>

DIBasics& DIBasics::operator=(DIBasics const& other) = default;
DText& DText::operator=(DText const& other) = default;
DStatusWnd& DStatusWnd::operator=(DStatusWnd const& other) = default;
DProgressBar& DProgressBar::operator=(DProgressBar const& other) = default;
DListControl& DListControl::operator=(DListControl const& other) = default;
DCheckBox& DCheckBox::operator=(DCheckBox const& other) = default;
DComboBox& DComboBox::operator=(DComboBox const& other) = default;
DListBox& DListBox::operator=(DListBox const& other) = default;
DSlider& DSlider::operator=(DSlider const& other) = default;
DStatic& DStatic::operator=(DStatic const& other) = default;
DButton& DButton::operator=(DButton const& other) = default;
DMenu& DMenu::operator=(DMenu const& other) = default;
DPopup& DPopup::operator=(DPopup const& other) = default;
DTabControl& DTabControl::operator=(DTabControl const& other) = default;
DToolTip& DToolTip::operator=(DToolTip const& other) = default;
DMsgBox& DMsgBox::operator=(DMsgBox const& other) = default;
DSystemTray& DSystemTray::operator=(DSystemTray const& other) = default;
