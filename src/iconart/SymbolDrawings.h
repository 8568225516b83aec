#pragma once

class QPainterPath;

namespace zelmo {

class SymbolPen;

// The area that each symbol's ink covers on the pen's grid.

// Signs that are made of lines.
QPainterPath checkmarkDrawing(const SymbolPen& pen);
QPainterPath checkmarkCircleDrawing(const SymbolPen& pen);
QPainterPath circleDrawing(const SymbolPen& pen);
QPainterPath codeDrawing(const SymbolPen& pen);
QPainterPath magnifyingGlassDrawing(const SymbolPen& pen);
QPainterPath crossDrawing(const SymbolPen& pen);

// Plain shapes, and discs with a sign cut out of them.
QPainterPath barChartDrawing(const SymbolPen& pen);
QPainterPath solidBarChartDrawing(const SymbolPen& pen);
QPainterPath boltDiscDrawing(const SymbolPen& pen);
QPainterPath checkmarkDiscDrawing(const SymbolPen& pen);
QPainterPath hexagonOfDiscsDrawing(const SymbolPen& pen);
QPainterPath playDiscDrawing(const SymbolPen& pen);
QPainterPath sparkleDrawing(const SymbolPen& pen);
QPainterPath sparklesDrawing(const SymbolPen& pen);
QPainterPath fourSquaresDrawing(const SymbolPen& pen);
QPainterPath nineSquaresDrawing(const SymbolPen& pen);

// Things that one could take in hand.
QPainterPath bookDrawing(const SymbolPen& pen);
QPainterPath bubblesDrawing(const SymbolPen& pen);
QPainterPath gearDrawing(const SymbolPen& pen);
QPainterPath keyboardDrawing(const SymbolPen& pen);
QPainterPath paintbrushDrawing(const SymbolPen& pen);
QPainterPath trashDrawing(const SymbolPen& pen);
QPainterPath wandDrawing(const SymbolPen& pen);

} // namespace zelmo
