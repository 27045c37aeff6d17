#pragma once

/// What the load progress bar shows. It is kept in the process's state and drawn by ProgView.
namespace quillon::load_progress {

/// Height of the bar's frame in points; its width is barWidth of the state.
inline constexpr int frameHeight = 22;

/// The colour of the part that is loaded, of 255.
inline constexpr int red = 56;
inline constexpr int green = 147;
inline constexpr int blue = 215;

/// Shows the progress as a rectangle, in points from the bar's top left corner: stores it and has the bar
/// drawn.
void updateRectProgress(int x, int y, int width, int height);

/// Shows the bar empty: stores the rectangle, and has the bar drawn and displayed anew.
void resetRectProgress(int x, int y, int width, int height);

/// Makes the bar as wide as its view, in whole points; less than one point leaves it as wide as it was.
void setViewWidth(double width);

} // namespace quillon::load_progress
