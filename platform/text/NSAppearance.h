#pragma once

/// The looks in which dynamic colours have values of their own. What resolves a dynamic colour takes one and
/// says its default; there is no current appearance of the process.
enum class NSAppearance { Light, Dark };
