#!/usr/bin/env bash
# Opens the console on a desk, with the modem's prompt beside it where tmux is there, else named for a second terminal.
# usage, on a desk: desk-console.sh BUILD_FOLDER
set -euo pipefail
build=$(realpath "$1")
export LD_LIBRARY_PATH=$build/ofono
console=$build/console/kvq-console
prompt=("$KVQ_MODEM_PROGRAM" --tell "$KVQ_DESK/modem.control")

if [[ -t 0 && -t 1 ]] && command -v tmux >/dev/null; then
    # A server of its own, which ends with the desk.
    screen=(tmux -S "$KVQ_DESK/tmux" -f /dev/null)
    end="tmux -S '$KVQ_DESK/tmux' kill-server"
    "${screen[@]}" new-session -d -x "$(tput cols)" -y "$(tput lines)" "'$console'; $end"
    "${screen[@]}" set-option -g mouse on
    "${screen[@]}" set-option -g status-left "the phone (left), its modem (right); .help in both, ^D ends  "
    "${screen[@]}" set-option -g status-left-length 80
    "${screen[@]}" set-option -g status-right ""
    "${screen[@]}" split-window -h "${prompt[*]@Q}; $end"
    "${screen[@]}" select-pane -L
    "${screen[@]}" display-message -p '#{pid}' >"$KVQ_DESK/screen.pid"
    "${screen[@]}" attach-session
    rm -f "$KVQ_DESK/screen.pid"
    exit
fi
echo "The modem's prompt, in a second terminal:"
echo "    ${prompt[*]@Q}"
exec "$console"
