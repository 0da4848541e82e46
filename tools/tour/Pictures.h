// The pictures that the tour takes on its way.
#pragma once

#include <string>

namespace tour {

/// Pictures of the whole screen in one folder, numbered in the order in which they are taken.
class Pictures {
  public:
    explicit Pictures(std::wstring folder);
    /// Takes the pointer out of the way, and the picture when nothing on the screen changes any more: 01-name.bmp,
    /// 02-name.bmp and so on.
    void take(const std::wstring& name);

  private:
    std::wstring m_folder;
    int m_taken = 0;
};

} // namespace tour
