code

equ trap_Print                 -1
equ trap_R_DrawChar            -2
equ trap_Cmd_Execute           -3
