// tests/platform/desktop_scene.h
// Windows that write down what they hear, as one line of text for a test to compare.
#pragma once
#include <gtest/gtest.h>

#include <map>
#include <string>

#include "tests/support/desktop_driver.h"

class DesktopTest : public testing::Test {
  protected:
    void SetUp() override;
    void TearDown() override;  // destroys what the test left open

    // A window of 300 by 200 whose left top is at (x, 100), shown and in front; it fills what it paints with its
    // colour.
    HWND Show(const std::string& name, int x = 100, HWND owner = nullptr, UINT classStyle = 0);
    HWND Make(const std::string& name, int x = 100, HWND owner = nullptr, UINT classStyle = 0);  // not shown

    std::string Heard();  // since the last call: "a: +active, b: paint"; empty when nothing

    // A hook for the next message of that kind, run before the window deals with it.
    void OnMessage(UINT message, std::function<void(HWND)> hook) { hooks_[message] = std::move(hook); }
    SIZE fixedSize_{0, 0};  // what windows say they want to be, whatever is asked; 0: no wish
    COLORREF colour_ = 0x336699;

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void Write(HWND window, const std::string& what);
    static DesktopTest* current_;
    std::map<HWND, std::string> names_;
    std::map<UINT, std::function<void(HWND)>> hooks_;
    std::string heard_;
    std::string naming_;  // the window that is being created
};
