#ifndef DEVICECLIP_P_H
#define DEVICECLIP_P_H

class QPainter;

/// Clips to all that can be painted on, which changes no pixel: without any clip Qt looks at the clip of the
/// device for every single pixel of a thin line.
void clipToDevice(QPainter &painter);

#endif // DEVICECLIP_P_H
