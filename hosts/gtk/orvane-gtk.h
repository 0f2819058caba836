#pragma once

/* The photo-editing control as a GTK 4 widget. The C functions of its members, and the documentation of its
 * properties and signals, stand in orvane-gtk-members.h. */

#include <gtk/gtk.h>

#define ORVANE_GTK_EXPORT __attribute__((visibility("default")))

G_BEGIN_DECLS

#define ORVANE_TYPE_VISTREL (orvane_vistrel_get_type())
ORVANE_GTK_EXPORT G_DECLARE_DERIVABLE_TYPE(OrvaneVistrel, orvane_vistrel, ORVANE, VISTREL, GtkWidget)

/**
 * OrvaneVistrel:
 *
 * A picture that can be seen, painted on and edited.
 *
 * The widget holds one picture, shows it zoomed, and has the tools of a paint program, which are chosen by
 * #OrvaneVistrel:paint-status and used with the mouse. No member fails: what it could not do shows as a
 * %FALSE or %NULL result, or as unchanged state; a property that is put outside its range keeps its value.
 * Every property notifies when it changes, whatever changed it.
 *
 * At zoom 1 a pixel of the picture is a pixel of the screen, whatever the scale factor. However many members
 * are called between two frames, the picture is composed once.
 *
 * Like all widgets it belongs to the main thread. orvane_vistrel_invoke_async() runs a slow member elsewhere.
 */

struct _OrvaneVistrelClass {
    GtkWidgetClass parent_class;

    /*< private >*/
    gpointer padding[8];
};

/**
 * orvane_vistrel_new:
 *
 * A control without a picture.
 *
 * Returns: (transfer floating): the widget
 */
ORVANE_GTK_EXPORT GtkWidget* orvane_vistrel_new(void);

/**
 * orvane_vistrel_image_point_at:
 * @self: the control
 * @x: position in the widget, in its own (logical) pixels
 * @y: position in the widget
 * @image_x: (out) (optional): the column of the image pixel shown there; 0 while there is no picture
 * @image_y: (out) (optional): its row
 *
 * The pixel of the picture under a position. Outside the picture the numbers go on, negative on the left and
 * above.
 *
 * Returns: whether the position is on the picture; %FALSE while the control is busy
 */
ORVANE_GTK_EXPORT gboolean orvane_vistrel_image_point_at(OrvaneVistrel* self, double x, double y,
                                                         int* image_x, int* image_y);

/**
 * orvane_vistrel_get_picture_serial:
 * @self: the control
 *
 * Names the picture's present pixels: another number whenever they may have changed, the old one again when
 * the change is undone, 0 while there is no picture.
 *
 * Returns: the number
 */
ORVANE_GTK_EXPORT guint64 orvane_vistrel_get_picture_serial(OrvaneVistrel* self);

/**
 * OrvaneVistrel::picture-changed:
 * @self: the control
 *
 * The picture's pixels may have changed. Comes from the main loop, once for any number of changes.
 */

/**
 * OrvaneVistrel:pending: (getter get_pending)
 *
 * Whether something is placed that orvane_vistrel_accept() would draw: a shape, a text, a stamp. Another
 * paint mode drops it, and a file that is saved does not have it. The frames of the crop and the selection do
 * not count.
 */

/**
 * orvane_vistrel_get_pending: (get-property pending)
 * @self: the control
 *
 * Whether something is placed that orvane_vistrel_accept() would draw.
 *
 * Returns: the answer
 */
ORVANE_GTK_EXPORT gboolean orvane_vistrel_get_pending(OrvaneVistrel* self);

/**
 * orvane_vistrel_type_text:
 * @self: the control
 * @text: the words so far
 *
 * orvane_vistrel_draw_string() for a text that is being typed: one that is placed already changes its words
 * and keeps its place; a new one comes to the upper left corner of what is shown of the picture.
 */
ORVANE_GTK_EXPORT void orvane_vistrel_type_text(OrvaneVistrel* self, const char* text);

/**
 * OrvaneVistrel:busy: (getter get_busy)
 *
 * Whether a member runs that orvane_vistrel_invoke_async() started. A busy control shows its last picture and
 * ignores the mouse. Its properties tell what held before; whatever changes it waits until it has finished.
 */

/**
 * orvane_vistrel_get_busy: (get-property busy)
 * @self: the control
 *
 * Whether a member runs that orvane_vistrel_invoke_async() started.
 *
 * Returns: the answer
 */
ORVANE_GTK_EXPORT gboolean orvane_vistrel_get_busy(OrvaneVistrel* self);

/**
 * orvane_vistrel_invoke_async:
 * @self: the control
 * @member: name of a method, such as "gaussian-blur"
 * @arguments: (nullable): a tuple of its arguments: i for whole numbers, d for fractions, s for text, u for a
 * colour 0xRRGGBB, ai and ay for arrays; %NULL for a method without parameters
 * @cancellable: (nullable): judged before the start; a method that runs is not interrupted
 * @callback: (scope async): called in the main loop when the method has ended
 * @user_data: for the callback
 *
 * Calls a method without blocking the main loop. The error is %G_IO_ERROR_PENDING when the control is busy or
 * waits for another program's clipboard, %G_IO_ERROR_NOT_FOUND when it has no such method, and
 * %G_IO_ERROR_INVALID_ARGUMENT when the arguments are others.
 */
ORVANE_GTK_EXPORT void orvane_vistrel_invoke_async(OrvaneVistrel* self, const char* member,
                                                   GVariant* arguments, GCancellable* cancellable,
                                                   GAsyncReadyCallback callback, gpointer user_data);

/**
 * orvane_vistrel_invoke_finish:
 * @self: the control
 * @result: what the callback was given
 * @error: why the method was not called
 *
 * Ends orvane_vistrel_invoke_async().
 *
 * Returns: (transfer full) (nullable): the method's result, b, ai or ay; %NULL for a method without result,
 * for an array that there is not, and when the method was not called
 */
ORVANE_GTK_EXPORT GVariant* orvane_vistrel_invoke_finish(OrvaneVistrel* self, GAsyncResult* result,
                                                         GError** error);

G_END_DECLS

#include "orvane-gtk-members.h"
