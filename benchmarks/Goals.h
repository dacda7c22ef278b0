// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

// One function for each subject; each reports its goals.

void measureStripRepaint();
void measurePeerRepaint();
void measureSparseRepaint();
void measureYScales();
void measurePictures();
void measureRowRange();
void measureIngest();
void measureMergedChannels();
void measureAveraging();
void measureSpectrogram();
void measureSpotMap();
void measureFiles();
void measureGrowth();
void measureMonitorChart();
void measureOwnModel();
void measureWatchedChart();
void measureFinerPixels();
void measureCameraFrames();
