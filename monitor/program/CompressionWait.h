// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QDialog>

class QLabel;
class QProgressBar;

namespace Monitor {

class SegmentCompressor;

/*! Says at the end of the program that files of a recording are still being compressed. It is accepted when that is done;
    rejecting it ends the waiting, and the files stay as they were recorded. */
class CompressionWait : public QDialog
{
    Q_OBJECT

public:
    //! \a compressor must outlive the dialog.
    explicit CompressionWait(SegmentCompressor &compressor, QWidget *parent = nullptr);

    //! Shows the dialog while there is something to wait for.
    void wait();

private:
    void refresh();

    SegmentCompressor &m_compressor;
    QLabel *m_text;
    QProgressBar *m_bar;
};

} // namespace Monitor
