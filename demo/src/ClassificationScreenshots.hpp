#pragma once
// Screenshots of the classification rows and of the item selector popup with a search under way.

#include <functional>
#include <string>

class QImage;

namespace Demo {

class MainWindow;

// Writes, through save (name, image): the window with an element's classification rows, and the
// selector popup of its first system after the search text was typed.
void SaveClassificationScreenshots (MainWindow& window, const std::function<void (const std::string&, const QImage&)>& save);

}   // namespace Demo
