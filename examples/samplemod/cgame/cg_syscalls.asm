code

equ trap_Print                 -1
equ trap_R_DrawRect            -2
equ trap_R_DrawChar            -3
