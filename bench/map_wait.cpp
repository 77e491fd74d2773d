// Starts a program and reports how long it takes until its first top-level window is mapped
// (MapNotify on the root window, seen as soon as the server sends it), then its resident
// memory one second later: resident, proportional (shared pages divided among the processes that
// map them) and private dirty. Prints "<milliseconds> <resident KiB> <proportional KiB> <private
// dirty KiB>" and ends the program by PID.
// Usage: qlv_map_wait program [args...]   (DISPLAY must name the X server)
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <poll.h>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <xcb/xcb.h>

namespace {

// A figure of /proc/<pid>/smaps_rollup ("Rss:", "Pss:", "Private_Dirty:"), in KiB.
long memoryKiB(pid_t pid, const std::string &wanted)
{
    std::ifstream rollup("/proc/" + std::to_string(pid) + "/smaps_rollup");
    std::string key;
    while (rollup >> key) {
        if (key == wanted) {
            long kib = 0;
            rollup >> kib;
            return kib;
        }
        rollup.ignore(4096, '\n');
    }
    return -1;
}

void endProcess(pid_t pid)
{
    ::kill(pid, SIGTERM);
    for (int i = 0; i < 200; ++i) {
        if (::waitpid(pid, nullptr, WNOHANG) == pid)
            return;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    ::kill(pid, SIGKILL);
    ::waitpid(pid, nullptr, 0);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s program [args...]\n", argv[0]);
        return 2;
    }
    xcb_connection_t *connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(connection)) {
        std::fprintf(stderr, "cannot open the display\n");
        return 2;
    }
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    const uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_void_cookie_t cookie =
        xcb_change_window_attributes_checked(connection, root, XCB_CW_EVENT_MASK, &mask);
    if (xcb_generic_error_t *error = xcb_request_check(connection, cookie)) {
        std::free(error);
        std::fprintf(stderr, "cannot watch the root window\n");
        return 2;
    }

    const auto start = std::chrono::steady_clock::now();
    const pid_t pid = ::fork();
    if (pid == 0) {
        ::execvp(argv[1], argv + 1);
        ::_exit(127);
    }

    const int fd = xcb_get_file_descriptor(connection);
    double elapsedMs = -1;
    while (elapsedMs < 0) {
        while (xcb_generic_event_t *event = xcb_poll_for_event(connection)) {
            if ((event->response_type & 0x7f) == XCB_MAP_NOTIFY && elapsedMs < 0) {
                elapsedMs = std::chrono::duration<double, std::milli>(
                                std::chrono::steady_clock::now() - start)
                                .count();
            }
            std::free(event);
        }
        if (elapsedMs >= 0)
            break;
        if (std::chrono::steady_clock::now() - start > std::chrono::seconds(30)
            || ::waitpid(pid, nullptr, WNOHANG) == pid) {
            std::fprintf(stderr, "%s: no window\n", argv[1]);
            endProcess(pid);
            return 1;
        }
        pollfd p { fd, POLLIN, 0 };
        ::poll(&p, 1, 20);
    }
    std::this_thread::sleep_for(std::chrono::seconds(1));
    const long rss = memoryKiB(pid, "Rss:");
    const long pss = memoryKiB(pid, "Pss:");
    const long dirty = memoryKiB(pid, "Private_Dirty:");
    endProcess(pid);
    xcb_disconnect(connection);
    std::printf("%.1f %ld %ld %ld\n", elapsedMs, rss, pss, dirty);
    return 0;
}
