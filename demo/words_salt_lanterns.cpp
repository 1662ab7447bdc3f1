#include "words.hpp"

namespace vellix::demo {

Book theSaltRoads() {
  return {
      .id = "salt",
      .title = "The Salt Roads",
      .titleLines = {"The Salt", "Roads"},
      .author = "Ilse Marrable",
      .tagline = "A novel",
      .blurb =
          "For forty years the keeper of the harbour light has counted ships and never once "
          "written down a name. Then, in a winter of flat grey water, the ships stop coming, and "
          "a surveyor arrives with a map of a road that nobody on the coast remembers agreeing "
          "to. A quiet, sly and luminous novel about what a place owes to the people who pass "
          "through it.",
      .quote = "“A book that smells of tar and cold weather. I did not want to come ashore.”",
      .isbn = "9799000001209",
      .chapters = {"The Keeper of Numbers", "What the Surveyor Brought"},
      .opening =
          {"The keeper of the harbour light had counted ships for forty years and never once "
           "written down a name. Names, he said, belonged to the people who lent them, and a "
           "light that kept names would soon be asked for them. So he kept numbers instead, in a "
           "ledger with a green spine, and on the last evening of each month he read the numbers "
           "aloud to the gulls, who were, he believed, the only creatures on the coast with no "
           "interest in using them.",
           "That winter the numbers fell. Eleven ships in the first week, then six, then on a "
           "Thursday of flat grey water, none. He climbed the stair twice to see whether the lamp "
           "had been turned, and twice found it burning where it stood, throwing its long arm out "
           "over a sea that had nothing to hand back.",
           "“You will have heard,” said the postmistress, setting the parcel on the sill between "
           "them, “about the road.”",
           "He had heard nothing. He said so. She looked past him at the lamp, as people did when "
           "they would rather not look at the keeper, and for a while neither of them had "
           "anything to say about it.",
           "“They are going to build it after all,” she said at last. “Straight over the flats, "
           "from the pans to the station. Salt by wagon. Salt by the hundredweight, and no more "
           "waiting on the tide.”",
           "He opened the parcel when she had gone. It held a brass rule, a coil of tarred line, "
           "and a letter folded so many times that it had become, in its way, a kind of box. "
           "Nobody had signed it. The hand was upright and a little proud, the hand of somebody "
           "who has been paid by the page."},
      .stock =
          {"{when} {who} walked out as far as {where} and came back with wet boots and no opinion.",
           "There is a sound that {thing} makes in cold weather, and everyone on the coast "
           "pretends not to know it.",
           "“It was never a road,” said {who}. “It was only where the carts had been.”",
           "At {where} the ground rang like a plate, and {who} stopped to listen for the water "
           "underneath.",
           "Nobody had thought to ask what would become of {thing}.",
           "{when} the wind went round to the north, and the whole town shut its doors one after "
           "another, like a man buttoning a coat.",
           "The surveyor measured {where} twice, wrote down two different figures, and drew a line "
           "between them with great care.",
           "“Put it in the ledger,” {who} told him, “and then put the ledger somewhere dry.”",
           "Salt gets into everything, the old people said: into bread, into locks, into the way a "
           "person says goodbye.",
           "He had kept {thing} for so long that it had begun, a little, to keep him.",
           "{when} three wagons stood at {where} with their shafts on the ground, and no horses "
           "anywhere.",
           "What the flats took they gave back in their own time, and never to the person who had "
           "lost it.",
           "{who} held that a straight line was a kind of rudeness, and would go a mile about to "
           "avoid one.",
           "“Count them again,” said {who}, who had never in her life believed a number the first "
           "time.",
           "From the gallery he could see {where}, and beyond it the white pans lying open like "
           "the pages of an account.",
           "It was agreed that {thing} should stay where it was until somebody could remember why.",
           "The tide came in over {where} so slowly that you had to look away to see it move.",
           "{when} he wrote a nought in the column, and under it another, and the pen made the "
           "same small noise each time.",
           "“There will be work in it,” {who} said, and turned {thing} over in his hands as if the "
           "work might be written underneath.",
           "A lamp does not ask where you are going, and that is the whole of its manners.",
           "By the time the kettle boiled, {who} had told the story of the first road, and most of "
           "the second.",
           "The gulls heard all of it and made no use of any."},
      .who = {"the postmistress", "old Tamsin", "the surveyor’s boy", "the carter’s widow",
              "the harbour master", "Edda Pell"},
      .where = {"the second pan", "the foot of the stair", "the broken causeway", "Fuller’s Gate",
                "the drowned mile", "the weighing house"},
      .thing = {"the brass rule", "the green ledger", "the old bell", "the ferryman’s chain",
                "the tarred line"},
      .when = {"Before it was light", "On the Tuesday", "Towards evening", "After the first frost",
               "In the week of the high tides"}};
}

Book lanternsOverVale() {
  return {
      .id = "lanterns",
      .title = "Lanterns over Vale",
      .titleLines = {"Lanterns", "over Vale"},
      .author = "Corin Ashdown",
      .tagline = "A story for long evenings",
      .blurb =
          "Once a year the people of Vale let go of everything they could not say. They write it "
          "on thin paper, fold the paper into a lantern, and send it over the hill. Nobody has "
          "ever asked where the lanterns come down. Then Wren, who is eleven and asks about "
          "everything, finds one in the reeds with her own name inside.",
      .quote = "“Read it aloud, and leave the curtains open.”",
      .isbn = "9799000002305",
      .chapters = {"The Night of Letting Go", "Over the Hill"},
      .opening =
          {"On the last night of the apple month, the people of Vale let go of everything they "
           "could not say. They wrote it on thin paper and folded the paper into lanterns, and "
           "when the bell had finished with midnight they carried the lanterns up to the sheep "
           "wall and opened their hands.",
           "Wren had been told that you must not watch your own. You were to look at somebody "
           "else’s, and wish it a good wind, and go down to the long tables without turning "
           "round. She was eleven. She turned round every year.",
           "From below it looked as though the valley had breathed out. First one small light and "
           "then forty, and then more than anyone could count, climbing over the orchards and the "
           "mill and the crooked chimney of the school, until the hill had a second hill above "
           "it, made of nothing but going.",
           "“Where do they come down?” she asked her grandmother.",
           "“They don’t,” said her grandmother, who was cutting a pie into more pieces than it "
           "had. “That is what they are for.”",
           "But a thing that goes up comes down. Wren had thrown enough apples to be certain of "
           "it. And so, on the first morning of the cold month, she filled her pockets with "
           "crusts and went over the hill to see."},
      .stock =
          {"{when} Wren counted the lights again and found one more than there had been.",
           "Behind {where} the grass was flat, as if something had lain down there to think.",
           "“I only want to know,” she said, and {who} sighed, because that was how it always "
           "began.",
           "{who} had a lantern from the year of the flood, and would not say what was in it.",
           "The paper was thin enough to see {thing} through.",
           "It is a hard thing to be looked for, and a harder one to be found.",
           "{when} the mist came up from {where} and went along the hedges, trying the gates.",
           "“You may have half of {thing},” said {who}, “and I shall have the other half, and then "
           "we shall both be in trouble.”",
           "Nobody in Vale had ever been over the hill, or else everybody had and it was not "
           "spoken of.",
           "She tied {thing} to the wall so that she would know the place again.",
           "At {where} there was a stile with a missing step, and on the step that was not there "
           "sat {who}.",
           "The bell rang once, by itself, for no hour at all.",
           "{when} the mill wheel turned the wrong way for a minute and then thought better of it.",
           "“Not lost,” said {who}. “Only early.”",
           "A secret weighs about as much as a candle, and burns for about as long.",
           "She could hear {where} before she could see it, a dry whispering, like people turning "
           "pages in bed.",
           "{who} gave her {thing} and told her not to thank anyone until she knew what it did.",
           "All that night the light moved about between the trees, patient as a cow.",
           "“If it has your name on it,” said {who}, “then somebody has already spent a great deal "
           "of paper on you.”",
           "When she looked back, Vale was no bigger than {thing}, and a good deal quieter."},
      .who = {"the miller’s brother", "her grandmother", "a boy with a rake", "the bell ringer",
              "Mistress Hob", "the reed cutter"},
      .where = {"the sheep wall", "the reed beds", "the other side of the orchard",
                "the schoolhouse", "Candle Bottom"},
      .thing = {"a blue ribbon", "the smallest lantern", "a crust of bread", "her own hand",
                "the ferry token"},
      .when = {"At the turn of the path", "Just after the bell", "In the blue part of the morning",
               "While the pies were cooling", "That same night"}};
}

}  // namespace vellix::demo
