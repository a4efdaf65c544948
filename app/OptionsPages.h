// SPDX-License-Identifier: MIT
#pragma once

#include "app/OptionsPage.h"

class QPushButton;

// Where notes go, how they are fetched, and what is logged.
class ImportOptionsPage : public OptionsPage {
public:
    ImportOptionsPage();

private:
    void addLibraryFolder();
    void addExportsFolder();
    // A folder that can be typed, or chosen with the button.
    void addFolder(const char* key, QPushButton& choose, const QString& label,
                   const QString& byDefault, const QString& explanation, const QString& panelTitle);
};

// How ENEX files are read.
class FileOptionsPage : public OptionsPage {
public:
    FileOptionsPage();
};

// How imported notes look.
class NoteOptionsPage : public OptionsPage {
public:
    NoteOptionsPage();

private:
    void addFont();
    void addColor(const char* key, const QString& label);
};

// How clipped pages are captured.
class WebOptionsPage : public OptionsPage {
public:
    WebOptionsPage();

private:
    void addFontFamily(const char* key, const QString& label, const QString& byDefault);
};
