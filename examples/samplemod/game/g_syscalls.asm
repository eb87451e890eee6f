code

equ trap_Print                 -1
equ trap_Milliseconds          -2
