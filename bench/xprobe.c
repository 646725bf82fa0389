/* xprobe - watches and drives the X display for aussen.py. One JSON line per result on stdout.
 *   xprobe paint FILE WIDTH [COLOUR]  ready-line, then: first new window at least WIDTH wide that is painted (picture
 *                                     to FILE), then: it stands still. Painted: less than 99 % of one colour; with
 *                                     COLOUR (rrggbb): at least 99 % of that colour
 *   xprobe keys GAP_MS AREA TEXT DIR  type TEXT, watch AREA (x,y,w,h on the root window). GAP_MS 0: wait for the
 *                                     reaction to each key (latency), save a picture after each in DIR; else type at
 *                                     that pace and say which picture in DIR the screen matches once the keys have
 *                                     been worked off, that is, how many keys arrived
 *   xprobe brisk AREA TEXT            as keys with GAP_MS 0, without pictures and with a quarter of a second at each key
 *                                     for the reaction, the settling and what moves by itself: for a game, which goes on
 *   xprobe drawn SECONDS              what is drawn in that time, by bursts: one line [rectangles, their pixels, pixels
 *                                     that have another colour than before] each
 * Pixels are read from the root window (MIT-SHM) only when XDamage says something was drawn; the time of a change
 * is the arrival of that damage event, and a redraw with equal pixels does not count. */
#define _GNU_SOURCE
#include <X11/XKBlib.h>
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XShm.h>
#include <X11/extensions/XTest.h>
#include <X11/extensions/Xdamage.h>
#include <X11/keysym.h>
#include <poll.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/ipc.h>
#include <sys/shm.h>
#include <time.h>
#include <unistd.h>

static Display *d;
static Window root;
static int X0, Y0, W, H; /* the part of the root window that is watched */
static int damage_event;
static Damage damage;
static XImage *img;
static XShmSegmentInfo seg;
static uint32_t *last;  /* the area as last seen */
static uint8_t *mask;   /* pixels that change by themselves (caret, clock): ignored */

static double now(void) {
    struct timespec t;
    clock_gettime(CLOCK_MONOTONIC, &t);
    return t.tv_sec + t.tv_nsec / 1e9;
}

static void die(const char *why) { fprintf(stderr, "xprobe: %s\n", why); exit(1); }

static void grab(void) { XShmGetImage(d, root, img, X0, Y0, AllPlanes); }

static void open_screen(const char *area) {
    int err;
    W = DisplayWidth(d, 0), H = DisplayHeight(d, 0);
    if (area && (sscanf(area, "%d,%d,%d,%d", &X0, &Y0, &W, &H) != 4 || X0 < 0 || Y0 < 0 || W < 1 || H < 1 ||
                 X0 + W > DisplayWidth(d, 0) || Y0 + H > DisplayHeight(d, 0)))
        die("AREA must be x,y,w,h within the screen");
    if (!XDamageQueryExtension(d, &damage_event, &err)) die("no DAMAGE extension");
    damage = XDamageCreate(d, root, XDamageReportNonEmpty);
    img = XShmCreateImage(d, DefaultVisual(d, 0), DefaultDepth(d, 0), ZPixmap, NULL, &seg, W, H);
    if (!img || img->bits_per_pixel != 32) die("needs MIT-SHM and 32 bits per pixel");
    seg.shmid = shmget(IPC_PRIVATE, (size_t)W * H * 4, IPC_CREAT | 0600);
    seg.shmaddr = img->data = shmat(seg.shmid, NULL, 0);
    XShmAttach(d, &seg);
    XSync(d, False);
    shmctl(seg.shmid, IPC_RMID, NULL);
    last = malloc((size_t)W * H * 4);
    mask = calloc((size_t)W * H, 1);
    grab();
    memcpy(last, img->data, (size_t)W * H * 4);
}

/* Number of pixels that differ from `last` outside the mask; takes the new picture over. */
static int take_changes(int learn_mask) {
    const uint32_t *p = (uint32_t *)img->data;
    int n = 0;
    grab();
    for (int i = 0; i < W * H; i++)
        if (p[i] != last[i]) {
            if (learn_mask) mask[i] = 1, n++;
            else if (!mask[i]) n++;
            last[i] = p[i];
        }
    return n;
}

/* Waits until `until` for a change of at least min pixels; returns its time or 0. */
static double wait_change(double until, int min, int learn_mask, int *pixels) {
    for (;;) {
        int hit = 0;
        XFlush(d);
        while (XPending(d)) {
            XEvent e;
            XNextEvent(d, &e);
            if (e.type == damage_event + XDamageNotify) hit = 1;
        }
        double t = now();
        if (hit) {
            XDamageSubtract(d, damage, None, None);
            int n = take_changes(learn_mask);
            if (pixels) *pixels = n;
            if (n >= min) return t;
            continue;
        }
        if (t >= until) return 0;
        struct timespec ts = {0, 0};
        double left = until - t;
        ts.tv_sec = (time_t)left, ts.tv_nsec = (long)((left - ts.tv_sec) * 1e9);
        struct pollfd p = {ConnectionNumber(d), POLLIN, 0};
        ppoll(&p, 1, &ts, NULL);
    }
}

/* ---- paint ---- */

static void save(const char *name) {
    FILE *f = fopen(name, "wb");
    if (!f || fwrite(last, 4, (size_t)W * H, f) != (size_t)W * H) die("cannot save a picture");
    fclose(f);
}

static Window *client_list(unsigned long *n) {
    Atom type;
    int format;
    unsigned long after;
    unsigned char *data = NULL;
    *n = 0;
    XGetWindowProperty(d, root, XInternAtom(d, "_NET_CLIENT_LIST", False), 0, 1024, False, XA_WINDOW,
                       &type, &format, n, &after, &data);
    return (Window *)data;
}

/* Of the window's pixels (every 7th looked at) less than 99 % have its most frequent colour; or, with a colour given,
 * at least 99 % have that. */
static int painted(Window w, int width, const char *colour) {
    static unsigned count[4096];
    uint32_t wanted = colour ? (uint32_t)strtoul(colour, NULL, 16) : 0;
    XWindowAttributes a;
    Window child;
    int x, y, total = 0, best = 0, same = 0;
    if (!XGetWindowAttributes(d, w, &a) || a.map_state != IsViewable || a.width < width) return 0;
    XTranslateCoordinates(d, w, root, 0, 0, &x, &y, &child);
    memset(count, 0, sizeof count);
    for (int i = 0; i < a.width * a.height; i += 7) {
        int px = x + i % a.width, py = y + i / a.width;
        if (px < 0 || py < 0 || px >= W || py >= H) continue;
        same += (last[py * W + px] & 0xffffff) == wanted;
        unsigned c = ++count[(last[py * W + px] * 2654435761u) >> 20];
        total++;
        if ((int)c > best) best = c;
    }
    if (colour) return total > 0 && same >= 0.99 * total;
    return total > 0 && best < 0.99 * total;
}

static int ignore_error(Display *x, XErrorEvent *e) { (void)x; (void)e; return 0; }

static void cmd_paint(const char *file, int width, const char *colour) {
    unsigned long n0, n;
    Window *old = client_list(&n0), found = None;
    double t, end = now() + 300, t_last;
    XSetErrorHandler(ignore_error); /* windows may vanish while we look */
    printf("{\"ready\": true}\n"), fflush(stdout);
    while (!found) {
        if (!(t = wait_change(end, 1, 0, NULL))) die("no painted window within 300 s");
        Window *list = client_list(&n);
        for (unsigned long i = 0; i < n && !found; i++) {
            int is_old = 0;
            for (unsigned long k = 0; k < n0; k++) is_old |= old[k] == list[i];
            if (!is_old && painted(list[i], width, colour)) found = list[i];
        }
        if (list) XFree(list);
    }
    printf("{\"painted\": %.6f}\n", t), fflush(stdout);
    save(file);
    for (t_last = t; (t = wait_change(t_last + 1.0, 500, 0, NULL)) && t < end;) t_last = t;
    printf("{\"still\": %.6f}\n", t_last);
}

/* ---- keys ---- */

static void press(KeyCode kc, int down) { XTestFakeKeyEvent(d, kc, down, CurrentTime); XFlush(d); }

/* key code and modifier (0: none) for a character on the present layout */
static KeyCode find_key(unsigned ch, KeyCode *mod) {
    KeySym want = ch == '\n' ? XK_Return : ch < 256 ? ch : 0x01000000 | ch, mods[] = {0, XK_Shift_L, XK_ISO_Level3_Shift};
    for (int level = 0; level < 3; level++)
        for (int kc = 8; kc < 256; kc++)
            if (XkbKeycodeToKeysym(d, kc, 0, level) == want) {
                *mod = level ? XKeysymToKeycode(d, mods[level]) : 0;
                return kc;
            }
    fprintf(stderr, "xprobe: no key for U+%04X\n", ch);
    exit(1);
}

static int decode(const char *s, unsigned *out, int max) { /* UTF-8 */
    int n = 0;
    while (*s && n < max) {
        unsigned c = (unsigned char)*s++;
        int more = c >= 0xE0 ? 2 : c >= 0xC0 ? 1 : 0;
        if (more) c &= more == 2 ? 0x0F : 0x1F;
        while (more-- && *s) c = c << 6 | (*s++ & 0x3F);
        out[n++] = c;
    }
    return n;
}

static char *picture(const char *dir, int i) {
    static char name[4096];
    snprintf(name, sizeof name, "%s/%03d.raw", dir, i);
    return name;
}

/* Which saved picture is nearest to the present screen, by differing unmasked pixels? */
static void match(const char *dir, int n) {
    uint32_t *p = malloc((size_t)W * H * 4);
    int best = -1, best_diff = W * H + 1, second = best_diff;
    for (int i = 0; i <= n; i++) {
        FILE *f = fopen(picture(dir, i), "rb");
        if (!f) continue;
        if (fread(p, 4, (size_t)W * H, f) != (size_t)W * H) die("short picture");
        fclose(f);
        int diff = 0;
        for (int k = 0; k < W * H; k++) diff += p[k] != last[k] && !mask[k];
        if (diff < best_diff) second = best_diff, best_diff = diff, best = i;
        else if (diff < second) second = diff;
    }
    printf(", \"match\": %d, \"match_diff\": %d, \"next_diff\": %d", best, best_diff, second);
    free(p);
}

static void learn_mask(double secs) {
    double end = now() + secs;
    memset(mask, 0, (size_t)W * H);
    while (wait_change(end, 1, 1, NULL)) {}
}

/* without dir: brisk */
static void cmd_keys(double gap, const char *text, const char *dir) {
    unsigned ch[2000];
    int n = decode(text, ch, 2000), answered = 0;
    const double hold = 0.030, react_max = dir ? 1.0 : 0.25, settle = dir ? 0.6 : 0.25, drain = 8.0;
    const double rest = dir ? 1.2 : 0.25;
    double t_first_key = 0;
    learn_mask(2.0);
    if (gap == 0 && dir) save(picture(dir, 0));
    printf("{\"keys\": %d, \"latency_ms\": [", n);
    for (int i = 0; i < n; i++) {
        KeyCode mod, kc = find_key(ch[i], &mod);
        if (mod) {
            press(mod, 1);
            double m = now() + (gap > 0 ? 0.005 : 0.15); /* let the reaction to Shift alone pass */
            while (wait_change(m, 1, 0, NULL)) {}
        }
        wait_change(now(), W * H + 1, 0, NULL); /* drop what is pending */
        double t0 = now(), first = 0, t;
        int down = 1;
        if (!t_first_key) t_first_key = t0;
        press(kc, 1);
        for (;;) {
            double limit = gap > 0 ? t_first_key + (i + 1) * gap
                         : !first ? t0 + react_max
                         : t0 + settle;
            if (down && t0 + hold < limit) limit = t0 + hold;
            t = wait_change(limit, 1, 0, NULL);
            if (t) {
                if (!first) first = t;
            } else if (down) {
                press(kc, 0), down = 0;
                if (mod) press(mod, 0);
            } else break;
        }
        if (first) answered++;
        if (gap == 0 && i == 4 && !answered) n = 5; /* the program does not take keys at all */
        printf("%s%.2f", i ? ", " : "", first ? (first - t0) * 1e3 : -1);
        if (gap == 0) { /* unequal pauses, so that keys do not fall into step with a clock of the program */
            if (dir) save(picture(dir, i + 1));
            learn_mask(rest + 0.001 * ((i * 7) % 40));
        }
    }
    double t = now();
    printf("], \"answered\": %d, \"typed_s\": %.3f", answered, t - t_first_key);
    if (gap > 0) { /* a program may flash each key for a tenth of a second and so lag behind */
        double end = now() + drain;
        while (wait_change(end, W * H + 1, 0, NULL)) {}
        learn_mask(1.5); /* a caret may be in its other phase */
        match(dir, n);
    }
    printf("}\n");
}

/* ---- what is drawn ---- */

static void cmd_drawn(double secs) {
    /* The parts of one reaction follow each other within a few ms; the quickest timer has 50. */
    const double quiet = 0.010;
    double end = now() + secs;
    int rects = 0, pixels = 0, first = 1;
    XDamageDestroy(d, damage);
    damage = XDamageCreate(d, root, XDamageReportRawRectangles);
    XSync(d, True); /* a new one begins with the whole window */
    grab(), memcpy(last, img->data, (size_t)W * H * 4);
    printf("[");
    for (;;) {
        while (XPending(d)) {
            XEvent e;
            XNextEvent(d, &e);
            if (e.type != damage_event + XDamageNotify) continue;
            const XRectangle *r = &((XDamageNotifyEvent *)&e)->area;
            rects++, pixels += r->width * r->height;
        }
        double t = now(), left = rects ? quiet : end - t;
        if (!rects && t >= end) break;
        struct timespec ts = {(time_t)left, (long)((left - (time_t)left) * 1e9)};
        struct pollfd p = {ConnectionNumber(d), POLLIN, 0};
        if (ppoll(&p, 1, &ts, NULL) > 0 || !rects) continue;
        printf("%s[%d, %d, %d]", first ? "" : ", ", rects, pixels, take_changes(0));
        rects = pixels = first = 0;
    }
    printf("]\n");
}

int main(int argc, char **argv) {
    const char *c = argc > 1 ? argv[1] : "";
    int keys = !strcmp(c, "keys") && argc > 5, brisk = !strcmp(c, "brisk") && argc > 3;
    int paint = !strcmp(c, "paint") && argc > 3, drawn = !strcmp(c, "drawn") && argc > 2;
    if (!keys && !brisk && !paint && !drawn)
        die("usage: paint FILE WIDTH [COLOUR] | keys GAP_MS AREA TEXT DIR | brisk AREA TEXT | drawn SECONDS");
    if (!(d = XOpenDisplay(NULL))) die("no display");
    root = DefaultRootWindow(d);
    open_screen(keys ? argv[3] : brisk ? argv[2] : NULL);
    if (paint) cmd_paint(argv[2], atoi(argv[3]), argc > 4 ? argv[4] : NULL);
    else if (drawn) cmd_drawn(atof(argv[2]));
    else if (brisk) cmd_keys(0, argv[3], NULL);
    else cmd_keys(atof(argv[2]) / 1e3, argv[4], argv[5]);
    return 0;
}
