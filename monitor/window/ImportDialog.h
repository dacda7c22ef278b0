// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/input/ImportOptions.h"

#include <QDialog>

#include <optional>

class QCheckBox;
class QComboBox;
class QDialogButtonBox;
class QLabel;
class QLineEdit;
class QSpinBox;
class QTableWidget;

namespace Monitor {

class WindowSettings;
struct TablePreview;

/*! Asks how a table of another program is to be read, and shows what its first rows become. The answers are kept
    with the header of the table, and files with the same header are read without asking again. */
class ImportDialog : public QDialog
{
    Q_OBJECT

public:
    /*! Returns how a file is to be read: as the line protocol says if it can be read so, as \a settings have it for such a
        header, or as the person says in a dialog. Returns nothing if the person cancels. */
    static std::optional<ImportOptions>
    optionsFor(const QString &path, WindowSettings *settings, QWidget *parent = nullptr);

    /*! Asks how a file that was read as \a present is to be read instead, and keeps the answer in \a settings for its header.
        Returns nothing if the person cancels. */
    static std::optional<ImportOptions> otherOptions(const QString &path,
                                                     const ImportOptions &present,
                                                     WindowSettings *settings,
                                                     QWidget *parent = nullptr);

    //! Begins with what the file seems to be; \a path may be any file.
    explicit ImportDialog(const QString &path, QWidget *parent = nullptr);
    ~ImportDialog() override;

    //! Returns what the controls say.
    ImportOptions options() const;
    void setOptions(const ImportOptions &options);

private:
    std::optional<ImportOptions> answer(const QString &header, WindowSettings *settings);
    void setReason(const QString &reason);
    void addControls();
    void addColumnControls();
    void addTimeControls();
    void makePreview();
    QComboBox *addChoice(const char *name, const QString &label, const QString &toolTip);
    QSpinBox *addNumber(const char *name, const QString &label, int least);
    QLineEdit *addLine(const char *name, const QString &label, const QString &toolTip);
    void preview();
    //! Returns a sentence on what the first rows became.
    static QString verdictOn(const TablePreview &preview);
    void
    showRows(const QString &verdict, const QVector<QStringList> &rows, const QStringList &names);

    const QString m_path;
    QComboBox *m_delimiter = nullptr;
    QComboBox *m_decimal = nullptr;
    QComboBox *m_header = nullptr;
    QComboBox *m_time = nullptr;
    QSpinBox *m_timeColumn = nullptr;
    QLineEdit *m_interval = nullptr;
    QComboBox *m_clock = nullptr;
    QLineEdit *m_format = nullptr;
    QSpinBox *m_skip = nullptr;
    QLineEdit *m_comment = nullptr;
    QLabel *m_verdict = nullptr;
    QLabel *m_option = nullptr;
    QTableWidget *m_rows = nullptr;
    QDialogButtonBox *m_buttons = nullptr;
    bool m_isSetting = true; //!< the controls change together
};

} // namespace Monitor
