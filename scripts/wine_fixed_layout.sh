# Sourced first by every script that runs Wine.
#
# Wine now and then fails to start a process ("failed to map the shared user
# data", and the parent sees error 1359): the kernel places a new process's
# heap at a random address within a gigabyte after the loader, and once in a
# few hundred starts that lands on the page Wine must map for Windows's
# shared user data. Without address randomisation the heap starts right after
# the loader, far below that page. The script runs itself again that way, and
# every process it starts inherits the layout.
if [ -z "${SCRIVOLT_FIXED_LAYOUT:-}" ] && setarch "$(uname -m)" -R true 2>/dev/null; then
  export SCRIVOLT_FIXED_LAYOUT=1
  exec setarch "$(uname -m)" -R bash "$0" "$@"
fi
