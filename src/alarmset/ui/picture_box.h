#pragma once

#include <QWidget>

#include <functional>

// A picture drawn in code that stands on the window and takes no input.
class PictureBox : public QWidget {
    Q_OBJECT
public:
    using Face = std::function<void(QPainter&, const QRectF&)>;
    explicit PictureBox(Face face, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Face m_face;
};
