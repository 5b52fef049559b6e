// Encodings that libxml2 knows only where it was built with iconv, as it is not on Windows.
#pragma once

namespace XmlEncodings {

/// Teaches libxml2 windows-1252, which editors on Windows write. Nothing where it is known already. Every later call
/// does nothing.
void Register();

} // namespace XmlEncodings
