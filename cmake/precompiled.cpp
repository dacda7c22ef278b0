// SPDX-License-Identifier: LGPL-2.1-or-later
// Nothing: a target has to have a source, and this one is there for its precompiled headers.
