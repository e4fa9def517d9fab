// One entry of an option menu: a title, or a separator (title "-").
#pragma once

#include <string>

class CMenuItem
{
  public:
    explicit CMenuItem(const char* title) : title(title ? title : "") {}

    const char* getTitle() const { return title.c_str(); }
    void setTitle(const char* newTitle) { title = newTitle ? newTitle : ""; }
    bool isSeparator() const { return title == "-"; }
    void setEnabled(bool state) { enabled = state; }
    bool isEnabled() const { return enabled && !isSeparator(); }

  private:
    std::string title;
    bool enabled = true;
};
