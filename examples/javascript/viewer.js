#!/usr/bin/env gjs
// Shows a picture, makes it warmer or cooler, and tells the position under the mouse.
//
//     gjs viewer.js PICTURE

imports.gi.versions.Gtk = '4.0';
imports.gi.versions.Orvane = '1.0';
const {Gio, GLib, GObject, Gtk, Orvane} = imports.gi;
const System = imports.system;

function button(label, action) {
    return new Gtk.Button({label, use_underline: true, action_name: action});
}

function activate(application, path) {
    const picture = new Orvane.Vistrel({hexpand: true, vexpand: true});
    const window = new Gtk.ApplicationWindow({application, default_width: 640, default_height: 520});

    // What the buttons and the keys do.
    const commands = {
        warmer: ['<Control>Up', () => picture.temperature(10)],
        cooler: ['<Control>Down', () => picture.temperature(-10)],
        undo: ['<Control>z', () => picture.undo()],
    };
    for (const [name, [key, run]] of Object.entries(commands)) {
        const action = new Gio.SimpleAction({name});
        action.connect('activate', run);
        window.add_action(action);
        application.set_accels_for_action(`win.${name}`, [key]);
    }
    application.set_accels_for_action('window.close', ['<Control>w']);
    // An action that is not enabled greys its button out.
    picture.bind_property('undo-enable', window.lookup_action('undo'), 'enabled', GObject.BindingFlags.SYNC_CREATE);

    // The title has a star before it while the picture is not as it was loaded.
    let position = '';
    const showTitle = () => {
        window.title = `${picture.modified ? '*' : ''}${GLib.path_get_basename(path)} ${position}`;
    };
    picture.connect('notify::modified', showTitle);

    // A function of C that has results beside its own gives them all together, as an array.
    const showPosition = (x, y) => {
        const [inside, column, row] = picture.image_point_at(x, y);
        position = inside ? `(${column}, ${row})` : '';
        showTitle();
    };
    const motion = new Gtk.EventControllerMotion();
    motion.connect('motion', (_controller, x, y) => showPosition(x, y));
    motion.connect('leave', () => showPosition(-1, -1));
    picture.add_controller(motion);

    const buttons = new Gtk.Box({spacing: 6});
    buttons.append(button('_Cooler', 'win.cooler'));
    buttons.append(button('_Warmer', 'win.warmer'));
    buttons.append(button('_Undo', 'win.undo'));

    const box = new Gtk.Box({orientation: Gtk.Orientation.VERTICAL});
    box.append(picture);
    box.append(buttons);
    window.child = box;
    if (!picture.load_image(path))
        printerr(`${path} is not a picture`);
    showTitle();
    window.present();
}

if (ARGV.length !== 1) {
    printerr('usage: viewer.js PICTURE');
    System.exit(2);
}
const application = new Gtk.Application({application_id: 'io.github.orvane.example.Position'});
application.connect('activate', () => activate(application, ARGV[0]));
System.exit(application.run([]));
