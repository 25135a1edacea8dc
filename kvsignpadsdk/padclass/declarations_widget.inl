// Event handlers of widget hosts: canvashost.
void mousePressEvent(QMouseEvent *pEvent) override;
void mouseMoveEvent(QMouseEvent *pEvent) override;
void paintEvent(QPaintEvent *pEvent) override;
void resizeEvent(QResizeEvent *pEvent) override;
