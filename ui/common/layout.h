#pragma once

/// What windows leave free, in pixels. The first five are those of the dialogs that take orders.
namespace ui::measures {

inline constexpr int windowEdge = 4;
inline constexpr int panelEdge = 4;
inline constexpr int panelTop = 2;  ///< below a panel's title
inline constexpr int gap = 4;       ///< between panels, and between a control and its neighbour
inline constexpr int lineGap = 2;   ///< between the lines of a panel

inline constexpr int mainEdge = 9;  ///< of the main window and its panels, where there is room

inline constexpr int standardLetters = 12;  ///< the size of the font that the dialogs are made for

inline constexpr int buttonEdges = 16;  ///< what a button has beside its caption
inline constexpr int narrowestButton = 60;
inline constexpr int fieldEdges = 12;     ///< what the frame of a display and the caret take
inline constexpr int tightLineEdges = 6;  ///< above and below the text in lines close together

}  // namespace ui::measures
