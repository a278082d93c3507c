#include "pages/SavedControls.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QItemSelectionModel>
#include <QListView>
#include <QListWidget>
#include <QSet>

namespace pages {

void saveChecks(datafile::SavedAnswers& saved, std::initializer_list<QCheckBox*> boxes, const QString& prefix)
{
    for (QCheckBox* box : boxes)
        saved.checks[prefix + box->objectName()] = box->isChecked();
}

void restoreChecks(const datafile::SavedAnswers& saved, std::initializer_list<QCheckBox*> boxes, const QString& prefix)
{
    for (QCheckBox* box : boxes)
        box->setChecked(saved.checks.value(prefix + box->objectName()));
}

void saveTexts(datafile::SavedAnswers& saved, std::initializer_list<QLineEdit*> boxes, const QString& prefix,
               bool withEnabled)
{
    for (QLineEdit* box : boxes) {
        saved.texts[prefix + box->objectName()] = box->text();
        if (withEnabled)
            saved.enabled[prefix + box->objectName()] = box->isEnabled();
    }
}

// The enabled state comes after the text, as the check box before it may
// have set it already: the file's word is the last.
void restoreTexts(const datafile::SavedAnswers& saved, std::initializer_list<QLineEdit*> boxes, const QString& prefix,
                  bool withEnabled)
{
    for (QLineEdit* box : boxes) {
        const QString name = prefix + box->objectName();
        if (saved.texts.contains(name))
            box->setText(saved.texts.value(name));
        if (withEnabled && saved.enabled.contains(name))
            box->setEnabled(saved.enabled.value(name));
    }
}

void selectRowsNamed(QListWidget* list, const QStringList& names)
{
    for (int i = 0; i < list->count(); ++i)
        list->item(i)->setSelected(names.contains(list->item(i)->text()));
}

void selectRowsNamed(QListView* list, const QStringList& names)
{
    const QSet<QString> wanted(names.begin(), names.end());
    const QAbstractItemModel* model = list->model();
    QItemSelection chosen;
    for (int i = 0; i < model->rowCount(); ++i) {
        const QModelIndex index = model->index(i, 0);
        if (wanted.contains(index.data().toString()))
            chosen.select(index, index);
    }
    list->selectionModel()->select(chosen, QItemSelectionModel::ClearAndSelect);
}

void chooseRowNamed(QComboBox* combo, const QString& text)
{
    if (text.isEmpty())
        return;
    for (int i = 0; i < combo->count(); ++i) {
        if (combo->itemText(i).compare(text, Qt::CaseInsensitive) == 0) {
            combo->setCurrentIndex(i);
            return;
        }
    }
    if (combo->isEditable())
        combo->setEditText(text);
}

void chooseRow(QComboBox* combo, int index) { combo->setCurrentIndex(index < combo->count() ? index : -1); }

} // namespace pages
