// Texts for screen readers where a control shows none: names of what has neither a text of its own
// nor a label right before it, and descriptions. Readers ask COM for them; a process without COM
// has nobody who would, and setting them does nothing.
#pragma once

#include <windows.h>

#include <string>

struct IAccPropServices;

namespace zn {

// The window that mouse, keyboard and readers meet: the list within an extended one, else the
// control itself.
[[nodiscard]] HWND InnerControl(HWND control) noexcept;

class AccessibleTexts {
 public:
  AccessibleTexts() noexcept = default;
  ~AccessibleTexts();
  AccessibleTexts(const AccessibleTexts&) = delete;
  AccessibleTexts& operator=(const AccessibleTexts&) = delete;

  void SetName(HWND control, const std::string& name) const;
  void SetDescription(HWND control, const std::string& description) const;
  // Gives every extended list its label as its name: within it, the list has no label before it.
  void NameExtendedLists(HWND dialog) const;
  // Takes back what the dialog's controls were given; before their windows go.
  void Forget(HWND dialog) const noexcept;

 private:
  void Set(HWND control, const GUID& property, const std::string& text) const;

  // The system's annotation service, made when the first text needs it; null without COM.
  [[nodiscard]] IAccPropServices* Services() const noexcept;

  mutable IAccPropServices* services_ = nullptr;
};

}  // namespace zn
