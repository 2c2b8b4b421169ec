# Sourced by the commands beside it: what Windows programs find, whatever the settings of the user are.

# A prefix that is not the user's own, an English user unless NUX_LOCALE names another locale, and a time zone.
enter_prefix() { # folder
    export WINEPREFIX=$1 WINEARCH=win64 WINEDEBUG=-all WINEDLLOVERRIDES="mscoree=d"
    [ "$(dpkg --print-architecture)" != i386 ] || WINEARCH=win32
    # Wine makes files with names beyond ASCII only if the machine has the locale; the machine's neutral one, under the
    # names of the others, is enough (make-prefix puts them there).
    unset "${!LC_@}" LANGUAGE
    export LOCPATH=$1/locales LANG=${NUX_LOCALE:-en_US.UTF-8} TZ=${NUX_TIME_ZONE:-UTC}
}

# Ends what runs in the prefix; the server writes the registry into it.
leave_prefix() {
    wineserver -k 2>/dev/null || true
    wineserver -w
}

# Starts a virtual display; the caller ends the process $display_server.
start_display() {
    local channel number
    exec {channel}<> <(:)
    Xvfb -displayfd "$channel" -screen 0 1280x1024x24 -nolisten tcp >/dev/null 2>&1 &
    display_server=$!
    read -r -u "$channel" -t 60 number
    exec {channel}<&-
    export DISPLAY=:$number
}
