#pragma once
// Screenshots of the property palette with its popups open: the default/custom popup of a
// property row and the checklist of a multi-valued enumeration. The popups are the backend's
// real ones; each is grabbed into the window's picture and closed without a choice.

#include <QString>

namespace Demo {

class MainWindow;

// Writes DIR/properties-popup<suffix>.png and DIR/properties-checklist<suffix>.png.
void SavePropertyScreenshots (MainWindow& window, const QString& dir, const QString& suffix);

}   // namespace Demo
