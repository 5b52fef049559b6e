// Boxes that show long text to be read, searched by eye and copied, never changed. Free function, no failure.
#pragma once

class QPlainTextEdit;
class QString;

namespace modTextBox {

/// In the desktop's font of even width, lines not wrapped. Belongs to the layout it is put in.
[[nodiscard]] QPlainTextEdit* Make(const QString& objectName, const QString& accessibleName);

} // namespace modTextBox
