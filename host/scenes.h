// The interesting states of the sheets' pages and the dialogs that they open, and the pictures of
// them.
#pragma once

#include <windows.h>

#include <array>
#include <cstdint>
#include <span>
#include <string>

#include "host/window/property_sheet.h"

namespace zn::host {

// What a user does with one control: a click, or the choice of a list's entry.
struct Step {
  static constexpr int kLast = -1;
  enum Kind : std::uint8_t { kNone, kClick, kChoose } kind = kNone;
  int control = 0;
  int entry = 0;  // of kChoose: from 0, or kLast
};

// Steps on a page, counted from 0, one after the other. The scenes of a page go on from one
// another.
struct Scene {
  int page;
  const char* name;
  std::array<Step, 6> steps;
};

[[nodiscard]] std::span<const Scene> PreferencesScenes();
[[nodiscard]] std::span<const Scene> PropertiesScenes();
// Takes the steps on the scene's page.
void Play(const Scene& scene, HWND page);

// Picture every page as it opens, and each scene or the dialogs of its steps. Each picture is a
// PNG file; its name and the window's title are printed. The sheet is cancelled.
// Throw HostError when a page cannot be shown or a file not be written.
void PicturePreferences(PropertySheet& sheet, const std::string& folder);
void PictureProperties(PropertySheet& sheet, const std::string& folder);

}  // namespace zn::host
