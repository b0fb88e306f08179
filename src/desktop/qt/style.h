// How the windows look: the colours of the form's scheme on Qt's widgets.
#pragma once

#include <QFont>
#include <QString>
#include <QWidget>
#include <string>

#include "cuvexa/dialogs.h"

namespace cuvexa::qt {

inline QString to_qt(const std::string& text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// A text of a label, in which an ampersand is an ampersand.
QString label_text(const std::string& text);

/// Gives a window the type, the size of type and the colours of the suite.
void dress(QWidget& window, const Suite_colors& colors);

/// The font of that name, as far as this machine has it; empty: the window's own.
QFont field_font(const QWidget& window, const std::string& name);

}  // namespace cuvexa::qt
