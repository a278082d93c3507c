#pragma once
// The controls a data file keeps, by their names: each page hands over its
// boxes and these move their values into the saved answers and back.
#include "datafile/DataFile.h"

#include <initializer_list>

class QCheckBox;
class QComboBox;
class QLineEdit;
class QListView;
class QListWidget;

namespace pages {

// The multiplayer options form's names carry a prefix, as they repeat the pages'.
void saveChecks(datafile::SavedAnswers& saved, std::initializer_list<QCheckBox*> boxes, const QString& prefix = {});
void restoreChecks(const datafile::SavedAnswers& saved, std::initializer_list<QCheckBox*> boxes,
                   const QString& prefix = {});
// With kept enabled states, the boxes whose state the file holds.
void saveTexts(datafile::SavedAnswers& saved, std::initializer_list<QLineEdit*> boxes, const QString& prefix = {},
               bool withEnabled = false);
void restoreTexts(const datafile::SavedAnswers& saved, std::initializer_list<QLineEdit*> boxes,
                  const QString& prefix = {}, bool withEnabled = false);

// Selects the rows of these names that are still listed; the others lose
// their selection.
void selectRowsNamed(QListWidget* list, const QStringList& names);
// The same for a list over a model, in one change of its selection.
void selectRowsNamed(QListView* list, const QStringList& names);
// The row of that text without regard to case; an unknown text leaves the
// combo as it was.
void chooseRowNamed(QComboBox* combo, const QString& text);
// A row by its index, or none for an index the list doesn't have.
void chooseRow(QComboBox* combo, int index);

} // namespace pages
