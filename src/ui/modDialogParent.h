// In front of which window a dialog or a box stands. Free function, no failure.
#pragma once

class QWidget;

namespace modDialogParent {

/// The dialog that is open, else the window, else null: what belongs to a hidden or minimised window would stay out of
/// sight with it. Takes null.
[[nodiscard]] QWidget* Choose(QWidget* window);

} // namespace modDialogParent
