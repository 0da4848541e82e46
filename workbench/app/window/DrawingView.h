// The window that shows the drawing: the model tab or a sheet, moved with the middle button and zoomed with the wheel.
// It knows where in the drawing the pointer is, and shows the number of the viewport below it.
#pragma once

#include "Picture.h"
#include "PointPick.h"
#include "SpaceView.h"
#include "PointerPlace.h"
#include "WindowLook.h"

#include "SessionWindow.h"

#include <functional>
#include <map>
#include <optional>

namespace workbench {

class DrawingView : public CWnd {
  public:
    /// @param look the main window's, which outlives the view
    /// @param drawing answers what is to be shown; null while there is none
    DrawingView(WindowLook& look, std::function<const zdr::Drawing*()> drawing);

    BOOL createIn(CWnd& parent, UINT id);
    /// Called with the number of the viewport that was double-clicked, or 0 for the paper beside all viewports.
    void onViewportChosen(std::function<void(int number)> chosen) { m_viewportChosen = std::move(chosen); }
    /// Called with the two points that a person has given, in the space on view.
    void onPicked(std::function<void(PickedFor purpose, Point first, Point second)> picked) {
        m_picked = std::move(picked);
    }
    /// Called with what the current viewport is to show when the wheel is turned over it.
    void onViewportZoomed(std::function<void(zdr::Handle viewport, const ViewportView& shown)> zoomed) {
        m_viewportZoomed = std::move(zoomed);
    }
    /// Called when the pointer is at another place of the drawing, or isn't over it any more.
    void onPointerMoved(std::function<void()> moved) { m_pointerMoved = std::move(moved); }
    /// Where in the drawing the pointer is; none while it isn't over this window.
    std::optional<PointerPlace> pointer();

    /// To be called when another drawing is to be shown: each of its spaces is zoomed to its extents at first.
    void drawingReplaced();
    /// The drawing is another than the picture, which is made anew at the next painting. That the pointer is at another
    /// place now isn't told.
    void regenerate();
    /// Shows all of the space on view.
    void zoomExtents();
    /// Zooms about the middle; false when it can't go any further.
    bool zoomBy(double factor);
    /// Shows a rectangle of the space on view, as large as it fits; false when it is too small or too large.
    bool zoomTo(const Rect& rect);
    /// Goes back to what the space on view has shown before; false when it has shown nothing else.
    bool zoomPrevious();
    /// Moves what is shown, in the units of the space on view.
    void moveBy(Point displacement);
    /// Moves what is shown by a part of the view's size: 1 is all of it, to the right and down.
    void panBy(double right, double down);
    /// From the space on view to pixels of this window.
    const ViewTransform& view() { return spaceView().view(); }

    /// Waits for two points, by clicks or by takePoint(), and shows a rubber band from the first one to the pointer.
    void beginPick(PickedFor purpose);
    /// Answers whether points were awaited.
    bool endPick();
    bool isPicking() const { return m_pick.isActive(); }
    void takePoint(Point point);

  protected:
    DECLARE_MESSAGE_MAP()
    afx_msg void OnPaint();
    afx_msg BOOL OnEraseBkgnd(CDC* dc);
    afx_msg void OnSize(UINT type, int width, int height);
    afx_msg BOOL OnMouseWheel(UINT flags, short delta, CPoint screen);
    afx_msg void OnMButtonDown(UINT flags, CPoint point);
    afx_msg void OnMButtonUp(UINT flags, CPoint point);
    afx_msg void OnMButtonDblClk(UINT flags, CPoint point);
    afx_msg void OnCaptureChanged(CWnd* window);
    afx_msg void OnMouseMove(UINT flags, CPoint point);
    afx_msg void OnMouseLeave();
    afx_msg void OnLButtonDown(UINT flags, CPoint point);
    afx_msg void OnLButtonUp(UINT flags, CPoint point);
    afx_msg void OnLButtonDblClk(UINT flags, CPoint point);
    afx_msg BOOL OnSetCursor(CWnd* window, UINT hit, UINT message);

  private:
    /// The number of the viewport below the pointer, and where it is shown.
    struct NumberSign {
        std::wstring text;
        bool isCurrent = false;
        CRect rect;
    };

    const zdr::Layout* layout(const zdr::Drawing& drawing) const;
    SpaceView& spaceView();
    ViewTransform extentsView() const;
    void show(const ViewTransform& next, bool byHand);
    Picture picture(const zdr::Drawing& drawing);
    void render(CDC& dc, const CRect& client);
    void drawBand(CDC& dc);
    Point planePoint(CPoint pixel);
    void viewMoved();
    void followPointer();
    void moveNumberSign();
    std::optional<NumberSign> numberSign();
    void paintNumberSign(CDC& dc);

    WindowLook& m_look;
    std::function<const zdr::Drawing*()> m_drawing;
    std::function<void(int)> m_viewportChosen;
    std::function<void(PickedFor, Point, Point)> m_picked;
    std::function<void(zdr::Handle, const ViewportView&)> m_viewportZoomed;
    std::function<void()> m_pointerMoved;
    std::map<std::optional<std::size_t>, SpaceView> m_views; // by layout; none for the model tab
    BackBuffer m_buffer;
    bool m_upToDate = false;
    CSize m_size{0, 0};
    std::optional<CPoint> m_dragged; // the middle button is down; the pointer's last place
    PointPick m_pick;
    PickedFor m_pickedFor = PickedFor::Window;
    CPoint m_pointer{0, 0};          // the pointer's last place
    std::optional<CPoint> m_pressed; // where the left button went down for the first point
    std::optional<CPoint> m_over;    // where the pointer is, while it is over this window
    std::optional<NumberSign> m_sign;
};

} // namespace workbench
