// What the process has in memory. Any thread.
#pragma once

// In KiB, from the kernel's own account; 0 where there is none.
long ResidentKibibytes();
