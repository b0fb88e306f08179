// The list that F2 opens: what is typed narrows it, Enter takes the row.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTableWidget>
#include <optional>
#include <string>
#include <vector>

#include "cuvexa/dialogs.h"

namespace cuvexa::qt {

class List_window : public QDialog {
public:
    List_window(Choice_list& list, const Suite_colors& colors, QWidget* parent);

    /// Shows the list; the first column of the chosen row, or nothing.
    std::optional<std::string> choose();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void look_for(const QString& text);

    Choice_list& list_;
    std::vector<std::vector<std::string>> rows_;
    QLineEdit* sought_;
    QTableWidget* table_;
    QLabel* count_;
};

}  // namespace cuvexa::qt
