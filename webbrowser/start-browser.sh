# Starts the browser in a private folder, joined to the program by two pipes, and removes the folder when it has ended.
# $1: the folder, which must not exist; $2: the browser to take, or empty for the system's; $3: its options, one a line
umask 077
# Who ends the program with all that it has started means this as well, but the folder has to go: the browser ends when
# nobody is at the pipes any more.
trap '' HUP INT TERM
mkdir $1 && mkfifo $1/in $1/out || exit
exec 3<$1/in 4>$1/out
rm $1/in $1/out
set -f
IFS='
'
for browser in ${2:-/usr/lib/chromium/chromium-headless-shell
/usr/lib/chromium/chromium
/usr/bin/chromium} ; do
    if [ -f $browser ] && [ -x $browser ] ; then
        # The program knows by this that somebody writes: an empty message.
        printf '\0' >&4
        # A group of its own, by which all of it can be ended.
        HOME=$1 TMPDIR=$1 XDG_RUNTIME_DIR=$1 setsid $browser $3 --user-data-dir=$1/profile </dev/null >/dev/null 2>&1 &
        echo $! >$1/group
        exec 3<&- 4>&-
        wait
        # Its children may still write for a moment.
        rm -rf $1 || { sleep 1 ; rm -rf $1 ; }
        exit
    fi
done
printf 'none\0' >&4
rm -r $1
