// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

class QWidget;

/*! \file
    Functions that fill the widgets with plausible data on a form in Designer, the same each time. Each takes a widget
    of the class in its name, which owns the model that it gets. */

void previewScope(QWidget *widget);
void previewScopePlotView(QWidget *widget);
void previewSpectrogram(QWidget *widget);
void previewPositionPlot(QWidget *widget);
void previewSplitPlot(QWidget *widget);
void previewPositionErrorPlot(QWidget *widget);
void previewSpotMapView(QWidget *widget);
void previewSpotMapWidget(QWidget *widget);
void previewLogBrowser(QWidget *widget);
void previewTableView(QWidget *widget);
void previewTreeComboBox(QWidget *widget);
