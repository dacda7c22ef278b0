// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "monitor/core/LoggedText.h"
#include "monitor/input/RowReader.h"

namespace Monitor {

/*! Reads frames that are written as "#frame t rows columns" and a line of numbers for each row. A frame with a bad row is
    refused as a whole, and its other rows are skipped. */
class FrameRowReader : public RowReader
{
public:
    //! What "#frame" says: the time, and the numbers of rows and columns.
    struct Beginning
    {
        double time = 0.0;
        bool isTimed = true; //!< false if the time is that of the arrival
        int rows = 0;
        int columns = 0;

        /*! Reads "t rows columns", or "rows columns" for a frame at \a arrivalTime. Returns false, with what is wrong in
            \a fault, for any other text. */
        bool read(std::string_view text, double arrivalTime, LoggedText *fault);
    };

    //! A reader of frames of one size.
    FrameRowReader(int rows, int columns);

    //! Begins a frame, and forgets the rows that the previous one still lacks.
    void begin(const Beginning &beginning);
    //! Returns whether rows of the frame are missing.
    bool isOpen() const { return m_row < m_rows; }
    //! Returns whether a row of the frame was refused.
    bool isSpoiled() const { return m_spoiled; }
    //! Returns the number of rows that the frame has got.
    int rowsTaken() const { return m_row; }
    //! Takes a row that cannot be read.
    void spoilRow();
    //! Forgets the frame that has begun.
    void drop() { m_row = m_rows; }
    //! Returns whether the present frame states its time.
    bool isTimed() const override { return m_isTimed; }
    //! Returns whether the frames have that size.
    bool hasSize(int rows, int columns) const { return rows == m_rows && columns == m_columns; }

    //! Takes a row. A row of a frame that was refused already is taken without being read.
    Outcome read(const Fields &fields, double arrivalTime, const RowHandler &handler) override;
    int numbersOfPlainLine() const override { return m_columns; }
    bool takePlain(const double *numbers, const RowHandler &handler) override;

private:
    double *presentRow() { return m_values.data() + std::ptrdiff_t(m_row) * m_columns; }
    Outcome readRow(const Fields &fields);
    void endRow(const RowHandler &handler);

    const int m_rows;
    const int m_columns;
    std::vector<double> m_values;
    double m_time = 0.0;
    bool m_isTimed = true;
    int m_row;
    bool m_spoiled = false;
};

} // namespace Monitor
