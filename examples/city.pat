; Hatch patterns of the city; lengths in metres.
*GRASS,Tufts of grass
90, 0,0, 1.5,1.5, .6,-2.4
60, 0,0, 1.5,1.5, .4,-2.6
120, 0,0, 1.5,1.5, .4,-2.6
*WATER,Open water
0, 0,0, 0,.8, 2,-1
