#pragma once

#include <QString>
#include <QWidget>

/// What a window shows of its form, read from its widgets alone, in the words of forms::Dump.
QString ShownForm(const QWidget& window);

/// The visible window with a name; nullptr when there is none.
QWidget* FindWindow(const QString& name);
