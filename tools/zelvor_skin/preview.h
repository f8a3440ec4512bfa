#pragma once
// Pictures of a skin for people to judge: a contact sheet of every bitmap
// with its number, and mock-ups of the player screen in both orientations
// (normal and pressed states), the browser screen and the play list panel,
// composed with the same drawing primitives the screens use.

#include <QString>

#include "skin_set.h"

namespace zelvor::skin {

// Writes the PNGs into `folder`; false, with a reason, on failure.
bool WritePreview(const SkinImages& images, const QString& skinName, const QString& folder,
                  QString* error);

} // namespace zelvor::skin
