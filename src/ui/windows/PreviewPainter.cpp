#include "ui/windows/PreviewPainter.h"

#include <iterator>

namespace ostvt {
namespace {

constexpr COLORREF kArrowFill = RGB(240, 0, 0);
constexpr COLORREF kArrowOutline = RGB(160, 0, 0);

void Fill(HDC context, const PreviewRect& rect, HBRUSH brush) {
  const RECT area = {rect.Left, rect.Top, rect.Right, rect.Bottom};
  FillRect(context, &area, brush);
}

// The picture stays inside the label, however small that is.
void DrawSample(HDC context, const LabelPreview& preview, HBITMAP sample) {
  BITMAP size;
  if (!sample || GetObjectW(sample, sizeof(size), &size) == 0) return;
  const HDC source = CreateCompatibleDC(context);
  if (!source) return;
  const HGDIOBJ before = SelectObject(source, sample);
  const int saved = SaveDC(context);
  IntersectClipRect(context, preview.Inside.Left, preview.Inside.Top, preview.Inside.Right,
                    preview.Inside.Bottom);
  // Of a bitmap of one bit, what is set is drawn in the background's colour.
  SetTextColor(context, RGB(0, 0, 0));
  SetBkColor(context, RGB(255, 255, 255));
  const SamplePlacement& place = preview.Sample;
  const int width = size.bmWidth;
  const int height = size.bmHeight;
  StretchBlt(context, place.FlipHorizontal ? place.Left + width - 1 : place.Left,
             place.FlipVertical ? place.Top + height - 1 : place.Top,
             place.FlipHorizontal ? -width : width, place.FlipVertical ? -height : height, source,
             0, 0, width, height, place.Invert ? NOTSRCCOPY : SRCCOPY);
  RestoreDC(context, saved);
  SelectObject(source, before);
  DeleteDC(source);
}

void DrawArrow(HDC context, const LabelPreview& preview) {
  POINT points[kFeedArrowPoints];
  for (int i = 0; i < kFeedArrowPoints; ++i)
    points[i] = {preview.FeedArrow[i].X, preview.FeedArrow[i].Y};
  const HBRUSH fill = CreateSolidBrush(kArrowFill);
  const HPEN outline = CreatePen(PS_SOLID, 1, kArrowOutline);
  const HGDIOBJ oldBrush = SelectObject(context, fill);
  const HGDIOBJ oldPen = SelectObject(context, outline);
  Polygon(context, points, static_cast<int>(std::size(points)));
  SelectObject(context, oldPen);
  SelectObject(context, oldBrush);
  DeleteObject(outline);
  DeleteObject(fill);
}

}  // namespace

HBITMAP PaintPreview(int32_t width, int32_t height, const LabelPreview& preview, HBITMAP sample) {
  const HDC screen = GetDC(nullptr);
  const HBITMAP picture = CreateCompatibleBitmap(screen, width, height);
  const HDC context = CreateCompatibleDC(screen);
  ReleaseDC(nullptr, screen);
  if (picture && context) {
    const HGDIOBJ before = SelectObject(context, picture);
    Fill(context, {0, 0, width, height}, GetSysColorBrush(COLOR_3DFACE));
    const auto black = static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH));
    Fill(context, preview.Wide, black);
    Fill(context, preview.Tall, black);
    if (preview.FillInside)
      Fill(context, preview.Inside, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    DrawSample(context, preview, sample);
    DrawArrow(context, preview);
    SelectObject(context, before);
  }
  if (context) DeleteDC(context);
  return picture;
}

}  // namespace ostvt
